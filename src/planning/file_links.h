#pragma once

#include "core/link_target.h"
#include "store/engine/database.h"

#include <QList>

class Prompts;
class Settings;
struct Seams;

/// The links of a year in the order of its table, or those of one sheet where its date is given.
/// None in a year that has never had a link, and so has no table for them.
QList<FileLink> ReadFileLinks(const dao::Database& database, const QString& planDate = {});

/// The links from a period of a planning sheet to files and web addresses, for the panel of links
/// of the sheets' windows. A period is its number as text, as the table has it. Each tells a
/// failure of the engine in a box.

/// The links of a period, in the order of the table; none where the table is missing still.
QList<FileLink> GetFileLinks(const dao::Database& database, Prompts& prompts,
                             const QString& planDate, int period);

/// The links of the whole year.
QList<FileLink> AllFileLinks(const dao::Database& database, Prompts& prompts);

/// Asks for a link and adds it to the period, making the table where it is missing. A name that the
/// period has already is refused with a message. Answers whether there is another link now.
bool AddFileLink(const dao::Database& database, Prompts& prompts, const QString& planDate,
                 int period);

/// Opens the link of that name of the sheet. Kept on purpose: by date and name alone, so that of
/// two periods with links of one name the first one's opens.
void OpenLink(const dao::Database& database, const Settings& settings, const Seams& seams,
              const QString& planDate, const QString& name);

/// Removes a link by its name. Kept on purpose: the first link of that name in the table goes, be
/// it another date's.
void RemoveFileLink(const dao::Database& database, Prompts& prompts, const QString& name);
