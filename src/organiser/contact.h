#pragma once

#include <QString>
#include <QStringList>

#include <array>

/// A contact of the address book: what it holds, by the fields of `Contacts`.
enum ContactField {
    Forename,
    Surname,
    HomeAddress,
    HomePostcode,
    HomeEmail1,
    HomeTelephone,
    MobilePhone,
    HomeFax,
    WorkAddress,
    WorkPostcode,
    WorkPhone,
    WorkFax,
    WorkEmail,
    ContactNotes,
    ContactFieldCount
};

/// The texts of a contact by their fields.
using Contact = std::array<QString, ContactFieldCount>;

/// The name of a field in the table.
QString contactFieldName(int field);
/// The most characters that a field holds; 0 for no limit.
int contactFieldSize(int field);

/// Cuts what is too long for its field; answers how many texts that were.
int cutToFit(Contact& contact);

/// A name is a forename and, behind its first blank, the surname. Both are empty where there is no
/// blank in it.
struct ContactName {
    QString forename;
    QString surname;

    bool isWhole() const { return !forename.isEmpty() && !surname.isEmpty(); }
};
ContactName splitContactName(const QString& name);

/// What `GroupID` holds: the first letter of the surname, as a capital; empty for no surname.
QString contactGroup(const QString& surname);
/// The letter of the tree under which a group is filed, from A to Z, an accent left aside; null
/// where none is.
QChar treeLetter(const QString& group);
