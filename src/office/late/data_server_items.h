#pragma once

#include "office/late/data_server.h"

#include "core/mail_client.h"

#include <optional>

/// What the data server keeps, as the program knows it.

/// The text of a memo: its summary is the first line, as in the memo that noteOf makes of a text.
QString noteText(ICalComponent* memo);
GOwned<ICalComponent> noteOf(const QString& text);

/// Nothing for what has no start, and for a single occurrence of an item that recurs.
std::optional<MailEvent> eventOf(ICalComponent* item);
/// Nothing for a list of contacts.
std::optional<MailContact> contactOf(EContact* contact);
