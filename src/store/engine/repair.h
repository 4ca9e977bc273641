#pragma once

#include "store/engine/structure.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace dao {

class Database;

/// A table that a damaged file may have had, from who knows what such files hold.
struct ExpectedTable {
    TableStructure structure;
    /// Older records have so many fields at least; 0 for all of them.
    int fewestFields = 0;
    /// Fields that no record leaves Null, though it could.
    QStringList filledFields = {};
    /// What the names of further fields begin with, which the table can have and nobody can tell;
    /// empty for a table that has these fields alone.
    QString furtherFields = {};
    /// Whether the file had it for certain: it is made where nothing is left of it.
    bool isNeeded = false;
    /// Tables with the same number are made one after the other as a rule; 0 for one that is made
    /// when it is first needed.
    int series = 0;
};

/// What the rules know of files of their kind, for a repair.
struct RepairKnowledge {
    /// The tables that a file can have, in the order in which they are made as a rule, those that
    /// are `found` already among them. Asked again when more has been found.
    std::function<QList<ExpectedTable>(const Database& found)> expected = {};
    /// Adds to the mended file what it can't do without. Answers what, a sentence each.
    std::function<QStringList(const Database& mended)> complete = {};
};

/// What a repair made of a table.
struct RepairedTable {
    QString table;
    qint64 saved = 0;         ///< records
    qint64 inPart = 0;        ///< those among them that lost a field, or a part of one
    qint64 lost = 0;          ///< records, at most
    bool mayLackMore = false; ///< records were lost of which nobody knows how many
    qint64 standIns = 0;      ///< records made, with a "?", for lost ones that others belong to
    qint64 unrelated = 0;     ///< lost records: those that belonged to a record that was not there
};

struct RepairReport {
    bool wasWhole = false; ///< the file needed no repair and is as it was
    QList<RepairedTable> tables;
    QStringList added; ///< what was made anew, a sentence each
};

} // namespace dao
