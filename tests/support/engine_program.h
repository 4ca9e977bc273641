#pragma once

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// How a program ended, and what it wrote.
struct Ended {
    int status;
    QString output;
    QString errors;
};

/// Runs a program to its end.
Ended runProgram(const QString& program, const QStringList& arguments, const QByteArray& input = {},
                 const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
