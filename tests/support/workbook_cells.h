#pragma once

#include <QList>
#include <QStringList>

/// One sheet of an .xls as freexl reads it. A text stands as it is, a number as "#7.5", a date as
/// "@2026-09-07".
struct ReadSheet {
    QString name;
    QList<QStringList> rows;
};

/// All sheets of a workbook; none where it can't be read as one.
QList<ReadSheet> readWorkbook(const QString& path);
