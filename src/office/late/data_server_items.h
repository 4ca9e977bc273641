#pragma once

#include "office/late/data_server.h"

#include "core/mail_client.h"

#include <functional>
#include <optional>

/// What the data server keeps, as the program knows it.

/// The text of a memo: its summary is the first line, as in the memo that noteOf makes of a text.
QString noteText(ICalComponent* memo);
GOwned<ICalComponent> noteOf(const QString& text);

/// Answers what `zoneIn` does of the item's calendar.
using ZoneOfCalendar = std::function<ICalTimezone*(const char* name)>;

/// Nothing for what has no start, and for a single occurrence of an item that recurs.
std::optional<MailEvent> eventOf(ICalComponent* item, const ZoneOfCalendar& zoneOfCalendar);
/// Nothing for a list of contacts.
std::optional<MailContact> contactOf(EContact* contact);
