#pragma once

#include "seating/desk.h"

#include <functional>

/// Where desks stand: those of a new plan, and those of a plan that is rearranged. In twips; halves
/// are rounded down.

/// The nearest whole quotient of two numbers, the lower one of two that are equally near.
int roundedQuotient(int dividend, int divisor);

/// The places of so many desks of a size in rows of eight, as four pairs, from the top left of the
/// room. The gap between the pairs fills the room's width; in a room that is too narrow it is
/// negative, and pairs overlap.
QList<QRect> deskRows(qsizetype count, QSize desk, QSize canvas);
/// The teacher's desk, in the middle of the lower edge.
QRect teachersPlace(QSize desk, QSize canvas);

/// Answers a number from 0 up to, but not including, 1.
using RandomNumber = std::function<double()>;
/// Numbers that begin anew with each call, by the clock.
RandomNumber clockRandom(qint64 milliseconds);

/// Lets each desk in turn change its place and size with one of all by chance; the teacher's
/// stays.
void shuffle(Desks& desks, const RandomNumber& random);

/// The size of all desks but the teacher's.
void setDeskSizes(Desks& desks, QSize size);

/// How many desks more another plan needs for these to take its places; 0 or less where there are
/// enough. `places` is the number of its desks, the teacher's included.
qsizetype missingDesks(const Desks& desks, qsizetype places);
/// Takes over the places and sizes of another plan's desks: first those of its pupils, then those
/// that are empty, in their order. A teacher's desk takes those of the other's, where both have
/// one.
void takeLayout(Desks& desks, const Desks& source);

/// The highest negative `ID` that no desk has.
qint64 nextEmptyId(const Desks& desks);
