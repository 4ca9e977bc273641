#pragma once

#include "store/engine/structure.h"

#include <QDate>
#include <QString>

#include <optional>

/// The fields of a register that stand for lessons. Their names are all that a file says of the
/// lessons: the date as dd/mm/yy, whatever the locale's separator, a blank, and the running number
/// of the lesson from 1. This is the one place that puts such a name together or takes it apart.

struct RegisterColumn {
    QDate date;
    int number = 0;

    bool operator==(const RegisterColumn&) const = default;
};

QString registerColumnName(const RegisterColumn& column);

/// The date's part of a column's name: dd/mm/yy.
QString registerDateText(QDate date);

/// Reads a date of that form; the year's two digits follow the rule of `dateFromParts`. None where
/// it is none.
std::optional<QDate> readRegisterDate(QStringView text);

/// Reads a field's name; none where it is no lesson's. The year's two digits follow the rule of
/// `dateFromParts`.
std::optional<RegisterColumn> readRegisterColumn(QStringView fieldName);

/// The field for a lesson, ready to be appended to a register.
dao::Field registerField(const RegisterColumn& column);
