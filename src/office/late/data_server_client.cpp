#include "office/late/data_server_items.h"

#include "office/late_mail_client.h"

using namespace Qt::StringLiterals;

namespace {

/// Fills the answer, or says in it why that is not possible.
template<typename Item, typename Read>
MailItems<Item> readItems(const Read& read) {
    MailItems<Item> answer;
    try {
        const Patience patience;
        read(answer.items, patience);
    } catch (const ServerFault& fault) {
        answer = {{}, fault.reason};
    }
    return answer;
}

class DataServerClient : public MailClient {
public:
    MailItems<QString> Outlook_ReadNotes() override {
        return readItems<QString>([](QStringList& notes, const Patience& patience) {
            const auto list = defaultCalendar(E_CAL_CLIENT_SOURCE_TYPE_MEMOS, patience);
            for (const auto& memo : itemsOf(list.get(), patience))
                notes += noteText(memo.get());
        });
    }

    MailItems<MailEvent> Outlook_ReadCalendar() override {
        return readItems<MailEvent>([](QList<MailEvent>& events, const Patience& patience) {
            const auto calendar = defaultCalendar(E_CAL_CLIENT_SOURCE_TYPE_EVENTS, patience);
            const auto zone = [&](const char* name) {
                return zoneIn(calendar.get(), name, patience);
            };
            for (const auto& item : itemsOf(calendar.get(), patience)) {
                if (const std::optional<MailEvent> event = eventOf(item.get(), zone))
                    events += *event;
            }
        });
    }

    MailItems<MailContact> Outlook_ReadContacts() override {
        return readItems<MailContact>([](QList<MailContact>& contacts, const Patience& patience) {
            const auto book = defaultAddressBook(patience);
            for (const auto& each : contactsOf(book.get(), patience)) {
                if (const std::optional<MailContact> contact = contactOf(each.get()))
                    contacts += *contact;
            }
        });
    }

    QString Outlook_AddNote(const QString& text) override {
        try {
            const Patience patience;
            const auto list = defaultCalendar(E_CAL_CLIENT_SOURCE_TYPE_MEMOS, patience);
            GError* error = nullptr;
            char* uid = nullptr;
            e_cal_client_create_object_sync(list.get(), noteOf(text).get(),
                                            E_CAL_OPERATION_FLAG_NONE, &uid, patience.cancellable(),
                                            &error);
            g_free(uid);
            raiseFault(error);
        } catch (const ServerFault& fault) {
            return fault.reason;
        }
        return {};
    }
};

} // namespace

extern "C" Q_DECL_EXPORT MailClient* orvaMailClient() {
    static DataServerClient client;
    return &client;
}
