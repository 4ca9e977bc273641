// fill_mail_server event|memo|contact: puts an item, as text on standard input, into the data
// server of the message bus that the environment names; a time zone may come with it, both within a
// VCALENDAR. A program of its own: the libraries that
// speak with the server bring a database library whose functions are called as those of the
// engine's are.

#include "office/late/data_server.h"

#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// Puts the time zone that came with an item beside it; answers the item.
GOwned<ICalComponent> withoutZone(GOwned<ICalComponent> whole, ECalClient* calendar,
                                  const Patience& patience) {
    GOwned<ICalComponent> definition(
        i_cal_component_get_first_component(whole.get(), I_CAL_VTIMEZONE_COMPONENT));
    if (!definition)
        return whole;
    const GOwned<ICalTimezone> zone(i_cal_timezone_new());
    i_cal_timezone_set_component(zone.get(), definition.get());
    GError* error = nullptr;
    e_cal_client_add_timezone_sync(calendar, zone.get(), patience.cancellable(), &error);
    raiseFault(error);
    const GOwned<ICalComponent> item(
        i_cal_component_get_first_component(whole.get(), I_CAL_VEVENT_COMPONENT));
    return GOwned<ICalComponent>(i_cal_component_clone(item.get()));
}

void addItem(ECalClientSourceType type, const QByteArray& text) {
    const Patience patience;
    const GOwned<ECalClient> calendar = defaultCalendar(type, patience);
    const GOwned<ICalComponent> item =
        withoutZone(GOwned<ICalComponent>(i_cal_component_new_from_string(text.constData())),
                    calendar.get(), patience);
    GError* error = nullptr;
    e_cal_client_create_object_sync(calendar.get(), item.get(), E_CAL_OPERATION_FLAG_NONE, nullptr,
                                    patience.cancellable(), &error);
    raiseFault(error);
}

void addContact(const QByteArray& card) {
    const Patience patience;
    const GOwned<EBookClient> book = defaultAddressBook(patience);
    const GOwned<EContact> contact(e_contact_new_from_vcard(card.constData()));
    GError* error = nullptr;
    e_book_client_add_contact_sync(book.get(), contact.get(), E_BOOK_OPERATION_FLAG_NONE, nullptr,
                                   patience.cancellable(), &error);
    raiseFault(error);
}

} // namespace

int main(int argc, char** argv) {
    QFile input;
    if (argc != 2 || !input.open(stdin, QIODevice::ReadOnly))
        return 2;
    const QLatin1StringView kind(argv[1]);
    try {
        if (kind == "contact"_L1)
            addContact(input.readAll());
        else
            addItem(kind == "memo"_L1 ? E_CAL_CLIENT_SOURCE_TYPE_MEMOS
                                      : E_CAL_CLIENT_SOURCE_TYPE_EVENTS,
                    input.readAll());
    } catch (const ServerFault& fault) {
        std::fputs(qPrintable(fault.reason), stderr);
        return 1;
    }
    return 0;
}
