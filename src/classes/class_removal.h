#pragma once

#include "classes/class_views.h"
#include "store/engine/database.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class Prompts;

/// How a class and its pupils are removed.

enum class DeleteClassAnswer { No, Yes, Archive };

/// Asks whether to delete a class, or to archive it instead, which is offered where the program can
/// (`mayArchive`). `dontAsk` lasts for the session: once the person has answered yes with the box
/// ticked it is set, and the answer then is yes without a question.
DeleteClassAnswer askDeleteClass(Prompts& prompts, const QString& classCode, bool mayArchive,
                                 bool& dontAsk);

/// Deletes a class: closes every recordset whose name contains its code, drops its tables and
/// every seating plan tied to its pupils, deletes its lesson notes, clears it from the planning
/// sheets, gives its periods back to the free slots of the timetable and deletes its record. Whole
/// or not at all: a failure is told and leaves everything as it was. Answers whether the class is
/// gone. The caller takes it from the lists and draws the timetable again.
bool Delete_Class(const dao::Database& database, const QString& classCode, Prompts& prompts);
/// The same for several classes, all or none. `next` is told of each before it goes.
bool Delete_Classes(const dao::Database& database, const QStringList& classCodes, Prompts& prompts,
                    const std::function<void(const QString&)>& next = {});

/// Asks, and deletes one pupil of a class, with his register, marks and desks; the name is for the
/// question. His lesson notes stay behind: no new pupil gets his `ID`. `dontAsk` as above. Answers
/// whether he is gone; a failure is told and leaves everything as it was.
bool Delete_Pupil(const dao::Database& database, const QString& classCode, qint64 pupil,
                  const PupilName& name, bool& dontAsk, Prompts& prompts);

/// Asks, and deletes pupils of a class, given by their `ID`, with their register, marks and desks:
/// those of the window's current records. The class and its columns stay. Answers whether they are
/// gone; a failure is told and leaves everything as it was.
bool Delete_All_Pupils(const dao::Database& database, const QString& classCode,
                       const QList<qint64>& pupils, Prompts& prompts);

/// The box of "Delete Current Pupil" for a class without any.
void showNothingToDelete(Prompts& prompts);
