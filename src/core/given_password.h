#pragma once

#include <QString>

/// How a program without windows is given a password other than as an argument, which everybody on
/// the computer can read.

/// A line from a file descriptor, byte by byte: what stands behind it is left for who reads next.
/// Null where nothing can be read.
QString passwordFromDescriptor(int descriptor);
/// The same for a descriptor's number as a text; null too where it is no number.
QString passwordFromDescriptor(const QString& number);

/// What the variable `ORVA_PASSWORD` of the environment says, or another one; empty without it. The
/// variable is taken away, so that no program started from here has it.
QString passwordFromEnvironment(const char* variable = "ORVA_PASSWORD");
