#pragma once

#include "core/mail_client.h"
#include "organiser/contact.h"

#include <QList>

/// What the address book takes of the mail client's contacts: those that have a first and a last
/// name.
QList<Contact> contactsOfMail(const QList<MailContact>& contacts);
