#pragma once

#include "core/mail_client.h"

#include <QLocale>
#include <QString>

class Session;

/// Events taken over from the mail client's calendar.

/// The rich text of a day with an event added: a new document where it was empty, else a paragraph
/// more at its end. What is no rich text is left as it is.
QString withEvent(const QString& day, const MailEvent& event);

/// Adds all items of the mail client's calendar to the open year's calendar of events, each to the
/// base row of its month, whatever its year; whole or not at all. No recordset may have the table
/// open. Answers whether it was done, which the notices tell; where not, the person was told why.
bool COEImportFromOutlook(Session& session);
