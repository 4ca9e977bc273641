#include "office/late/data_server.h"

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds ServerPatience(15);
/// The queries for everything, of the two languages that there are.
constexpr const char* EveryItem = "#t";
constexpr const char* EveryContact = R"((contains "x-evolution-any-field" ""))";

/// Where the person's own sources are noted. GLib ends the program that asks for a list of settings
/// which is not installed.
constexpr const char* SourcesSchema = "org.gnome.Evolution.DefaultSources";

bool hasSourcesSchema() {
    GSettingsSchemaSource* installed = g_settings_schema_source_get_default();
    GSettingsSchema* schema =
        installed ? g_settings_schema_source_lookup(installed, SourcesSchema, TRUE) : nullptr;
    if (!schema)
        return false;
    g_settings_schema_unref(schema);
    return true;
}

/// The end of the desktop's message bus is no end of the program, as GLib would have it.
void outliveBus(const Patience& patience) {
    GError* error = nullptr;
    const GOwned<GDBusConnection> bus(
        g_bus_get_sync(G_BUS_TYPE_SESSION, patience.cancellable(), &error));
    raiseFault(error);
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
}

GOwned<ESourceRegistry> openRegistry(const Patience& patience) {
    if (!hasSourcesSchema())
        throw ServerFault{u"The data server of the mail client (evolution-data-server) is not "
                          "installed on this computer."_s};
    outliveBus(patience);
    GError* error = nullptr;
    GOwned<ESourceRegistry> registry(e_source_registry_new_sync(patience.cancellable(), &error));
    raiseFault(error);
    return registry;
}

/// For how many seconds to wait for what is behind a source. A source of this computer has it at
/// once, and would be waited for as long as the computer has no network.
guint32 secondsFor(ESource* source, const char* extension) {
    constexpr guint32 otherComputer = 10;
    constexpr auto none = static_cast<guint32>(-1);
    auto* backend = E_SOURCE_BACKEND(e_source_get_extension(source, extension));
    return g_strcmp0(e_source_backend_get_backend_name(backend), "local") == 0 ? none
                                                                               : otherComputer;
}

/// Takes over what the list holds, and the list.
template<typename Item>
std::vector<GOwned<Item>> taken(GSList* list) {
    std::vector<GOwned<Item>> items;
    for (GSList* each = list; each; each = each->next)
        items.emplace_back(static_cast<Item*>(each->data));
    g_slist_free(list);
    return items;
}

} // namespace

Patience::Patience()
    : m_cancellable(g_cancellable_new()), m_watch([this](const std::stop_token& done) {
        std::unique_lock lock(m_mutex);
        m_over.wait_for(lock, done, ServerPatience, [] { return false; });
        if (!done.stop_requested())
            g_cancellable_cancel(m_cancellable.get());
    }) {}

Patience::~Patience() = default;

void raiseFault(GError* error) {
    if (!error)
        return;
    const bool isOver = g_error_matches(error, G_IO_ERROR, G_IO_ERROR_CANCELLED) ||
                        g_error_matches(error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT);
    const QString reason = QString::fromUtf8(error->message);
    g_error_free(error);
    throw ServerFault{isOver ? u"The data server of the mail client does not answer."_s
                             : u"The data server of the mail client can't be used:\n"_s + reason};
}

GOwned<ECalClient> defaultCalendar(ECalClientSourceType type, const Patience& patience) {
    const GOwned<ESourceRegistry> registry = openRegistry(patience);
    const bool isMemos = type == E_CAL_CLIENT_SOURCE_TYPE_MEMOS;
    const GOwned<ESource> source(isMemos ? e_source_registry_ref_default_memo_list(registry.get())
                                         : e_source_registry_ref_default_calendar(registry.get()));
    if (!source)
        throw ServerFault{isMemos ? u"The mail client has no list of memos of its own."_s
                                  : u"The mail client has no calendar of its own."_s};
    GError* error = nullptr;
    const guint32 seconds = secondsFor(source.get(), isMemos ? E_SOURCE_EXTENSION_MEMO_LIST
                                                             : E_SOURCE_EXTENSION_CALENDAR);
    EClient* client =
        e_cal_client_connect_sync(source.get(), type, seconds, patience.cancellable(), &error);
    raiseFault(error);
    return GOwned<ECalClient>(E_CAL_CLIENT(client));
}

GOwned<EBookClient> defaultAddressBook(const Patience& patience) {
    const GOwned<ESourceRegistry> registry = openRegistry(patience);
    const GOwned<ESource> source(e_source_registry_ref_default_address_book(registry.get()));
    if (!source)
        throw ServerFault{u"The mail client has no address book of its own."_s};
    GError* error = nullptr;
    const guint32 seconds = secondsFor(source.get(), E_SOURCE_EXTENSION_ADDRESS_BOOK);
    EClient* client =
        e_book_client_connect_sync(source.get(), seconds, patience.cancellable(), &error);
    raiseFault(error);
    return GOwned<EBookClient>(E_BOOK_CLIENT(client));
}

std::vector<GOwned<ICalComponent>> itemsOf(ECalClient* calendar, const Patience& patience) {
    GError* error = nullptr;
    GSList* items = nullptr;
    e_cal_client_get_object_list_sync(calendar, EveryItem, &items, patience.cancellable(), &error);
    raiseFault(error);
    return taken<ICalComponent>(items);
}

std::vector<GOwned<EContact>> contactsOf(EBookClient* book, const Patience& patience) {
    GError* error = nullptr;
    GSList* contacts = nullptr;
    e_book_client_get_contacts_sync(book, EveryContact, &contacts, patience.cancellable(), &error);
    raiseFault(error);
    return taken<EContact>(contacts);
}

ICalTimezone* zoneIn(ECalClient* calendar, const char* name, const Patience& patience) {
    ICalTimezone* zone = nullptr;
    e_cal_client_get_timezone_sync(calendar, name, &zone, patience.cancellable(), nullptr);
    return zone;
}
