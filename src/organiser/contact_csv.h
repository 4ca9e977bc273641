#pragma once

#include "organiser/contact.h"

#include <QByteArrayView>
#include <QList>

/// What a file of comma-separated contacts holds.
struct ContactCsv {
    bool hasHeader = false; ///< its first line names a field that is known
    QList<Contact> contacts;
    int cutTexts = 0; ///< so many were longer than their field, and are cut
};

/// Reads one. It is UTF-8, with or without its mark, else Windows-1252. The first line says what
/// the columns are; those of no known name are passed over. A record ends with its line, but goes
/// on while a quote is open and until it has as many commas as the first line; outer quotes go,
/// doubled ones become one. Empty lines, and records without a name, are passed over.
ContactCsv readContactCsv(QByteArrayView file);
