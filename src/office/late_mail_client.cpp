#include "office/late_mail_client.h"

#include <QCoreApplication>
#include <QLibrary>

using namespace Qt::StringLiterals;

namespace {

/// Null where the module, or a library that it needs, is missing.
MailClient* mailModule() {
    static QLibrary module(QCoreApplication::applicationDirPath() + u"/../lib/liborva_mail"_s);
    const auto client =
        reinterpret_cast<decltype(&orvaMailClient)>(module.resolve("orvaMailClient"));
    return client ? client() : nullptr;
}

QString missingModule() {
    return u"What is needed to reach a mail client is not installed on this computer: "
           "evolution-data-server."_s;
}

} // namespace

MailItems<QString> LateMailClient::Outlook_ReadNotes() {
    MailClient* client = mailModule();
    return client ? client->Outlook_ReadNotes() : MailItems<QString>{{}, missingModule()};
}

MailItems<MailEvent> LateMailClient::Outlook_ReadCalendar() {
    MailClient* client = mailModule();
    return client ? client->Outlook_ReadCalendar() : MailItems<MailEvent>{{}, missingModule()};
}

MailItems<MailContact> LateMailClient::Outlook_ReadContacts() {
    MailClient* client = mailModule();
    return client ? client->Outlook_ReadContacts() : MailItems<MailContact>{{}, missingModule()};
}

QString LateMailClient::Outlook_AddNote(const QString& text) {
    MailClient* client = mailModule();
    return client ? client->Outlook_AddNote(text) : missingModule();
}
