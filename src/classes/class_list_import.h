#pragma once

#include "classes/import_source.h"

#include <QString>

#include <optional>

/// Class lists from the clipboard, from spreadsheets and text files, and from other years. Pupils
/// are added; whether one of that name is there already is not looked at. An import is one
/// transaction: a failure is told and leaves the class as it was.

/// Takes the pupils of a text: a line each, the surname, a tab, the first name and, behind another
/// tab, the tutor group. Asks first, and offers a file instead where the text is empty, the person
/// declines or the class has still nobody. Answers how many pupils were added.
int Paste_Classlist(Session& session, const QString& classCode, const QString& clipboard);

/// Asks for a file, and for what is to be taken of it. Answers how many pupils were added.
int Import_ClassList(Session& session, const QString& classCode);

/// Surnames from column A, first names from B and tutor groups from C, the first pupil in row 3.
SpreadsheetChoice usualListChoice();
/// What is asked about a sheet.
SpreadsheetRequest classListRequest(const QString& file);
/// The pupils of a sheet, until the first row without a surname. Surnames get one capital. Answers
/// how many there were; none where it failed.
std::optional<int> importListFromSheet(const dao::Database& database, const QString& classCode,
                                       const SheetSource& source, Prompts& prompts);
/// The pupils of a class of another year, which may be the same file. Of the fields those come over
/// that have the same name at the same place in both tables. Answers as above.
std::optional<int> importListFromYear(const dao::Database& database, const QString& classCode,
                                      dao::Database source, const QString& sourceClass,
                                      Prompts& prompts);
