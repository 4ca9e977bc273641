#include "core/mail_client.h"

using namespace Qt::StringLiterals;

namespace {

class AbsentMailClient : public MailClient {
public:
    MailItems<QString> Outlook_ReadNotes() override { return {{}, absence()}; }
    MailItems<MailEvent> Outlook_ReadCalendar() override { return {{}, absence()}; }
    MailItems<MailContact> Outlook_ReadContacts() override { return {{}, absence()}; }
    QString Outlook_AddNote(const QString&) override { return absence(); }

private:
    static QString absence() { return u"This program does not reach a mail client."_s; }
};

} // namespace

MailClient& absentMailClient() {
    static AbsentMailClient absent;
    return absent;
}

QString nothingFoundText(const QString& sentence, const QString& fault) {
    return fault.isEmpty() ? sentence : sentence + u"\n\n"_s + fault;
}
