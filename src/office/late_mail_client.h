#pragma once

#include "core/mail_client.h"

/// The mail client of the desktop, by its data server (evolution-data-server). The libraries that
/// speak with it stand in a module of their own, lib/liborva_mail.so, which is loaded when first
/// asked for: a computer need not have them.
class LateMailClient : public MailClient {
public:
    MailItems<QString> Outlook_ReadNotes() override;
    MailItems<MailEvent> Outlook_ReadCalendar() override;
    MailItems<MailContact> Outlook_ReadContacts() override;
    QString Outlook_AddNote(const QString& text) override;
};

/// What the module is asked for by name.
extern "C" MailClient* orvaMailClient();
