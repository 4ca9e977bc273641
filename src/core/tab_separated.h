#pragma once

#include "store/engine/value.h"

#include <QString>
#include <QStringList>

/// How programs without windows write what they answer: a line an answer, its values separated by
/// tabs, so that any script can take it apart again.

/// A text as it stands in such a line: tab, line break and backslash as \t, \n, \r and \\.
QString escapedText(QString text);

/// A field's value as it stands in such a line: Null as \N, bytes as `x` and hexadecimal digits, a
/// number as the shortest decimal that reads back as the same.
QString escapedValue(const dao::Value& value);

/// Writes a line to standard output: texts are escaped and joined.
void printLine(const QStringList& texts);
/// Writes a line of what is escaped already.
void printEscapedLine(const QStringList& values);
