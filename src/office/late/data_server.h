#pragma once

// GLib has members called `signals`, which is a keyword of Qt's: its headers come first.
#include <libebook/libebook.h>
#include <libecal/libecal.h>

#include <QString>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

/// The desktop's data server, as libecal and libebook reach it.

/// Lets go of what GLib counts the users of.
struct GUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template<typename Object>
using GOwned = std::unique_ptr<Object, GUnref>;

/// The server could not be reached, or did not do what it was asked to: a sentence for the person.
struct ServerFault {
    QString reason;
};

/// What a server may take for one operation. A call that is given `cancellable` ends with that time
/// at the latest, so that no server holds the program up.
class Patience {
public:
    Patience();
    ~Patience();
    Patience(const Patience&) = delete;
    Patience& operator=(const Patience&) = delete;

    GCancellable* cancellable() const { return m_cancellable.get(); }

private:
    GOwned<GCancellable> m_cancellable;
    std::mutex m_mutex;
    std::condition_variable_any m_over;
    std::jthread m_watch; ///< last
};

/// Raises ServerFault for an error, which it frees; does nothing without one.
void raiseFault(GError* error);

/// The calendar or the list of memos that is the person's by default, and the address book. Raise
/// ServerFault.
GOwned<ECalClient> defaultCalendar(ECalClientSourceType type, const Patience& patience);
GOwned<EBookClient> defaultAddressBook(const Patience& patience);

/// All that is in one. Raise ServerFault.
std::vector<GOwned<ICalComponent>> itemsOf(ECalClient* calendar, const Patience& patience);
std::vector<GOwned<EContact>> contactsOf(EBookClient* book, const Patience& patience);

/// A time zone that came with an item into a calendar, as those of invitations do, by its name
/// there; null for none. The calendar keeps it.
ICalTimezone* zoneIn(ECalClient* calendar, const char* name, const Patience& patience);
