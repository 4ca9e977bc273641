// What is read from and written to a mail client, by the real data server on a message bus of its
// own, over an empty home.

#include "office/late_mail_client.h"
#include "support/engine_places.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The message bus, with a home for the servers that it starts. This process asks no other bus
/// before, and none after: GLib keeps to the first.
class PrivateBus {
public:
    PrivateBus() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DISPLAY"_s);
        environment.insert(u"GSETTINGS_BACKEND"_s, u"memory"_s);
        for (const char* folder : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                                   "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
            environment.insert(QString::fromLatin1(folder), m_home.path());
        m_daemon.setProcessEnvironment(environment);
        m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        m_daemon.waitForReadyRead();
        qputenv("DBUS_SESSION_BUS_ADDRESS", m_daemon.readLine().trimmed());
        qputenv("GSETTINGS_BACKEND", "memory");
    }
    ~PrivateBus() {
        m_daemon.terminate(); // the servers go with their bus
        m_daemon.waitForFinished();
    }

private:
    QTemporaryDir m_home;
    QProcess m_daemon;
};

/// Puts an item into the server: an "event", a "memo", or a "contact".
void fill(const QString& kind, const QByteArray& item) {
    QProcess filling;
    filling.start(test::built(u"tests/fill_mail_server"_s), {kind});
    filling.write(item);
    filling.closeWriteChannel();
    ASSERT_TRUE(filling.waitForFinished());
    ASSERT_EQ(filling.exitCode(), 0) << filling.readAllStandardError().constData();
}

QStringList sorted(QStringList texts) {
    texts.sort();
    return texts;
}

} // namespace

TEST(MailClientTest, ReadsAndWritesWhatTheServerKeeps) {
    const PrivateBus bus;
    LateMailClient client;

    EXPECT_EQ(client.Outlook_ReadNotes().fault, QString());
    EXPECT_TRUE(client.Outlook_ReadNotes().items.isEmpty());
    EXPECT_TRUE(client.Outlook_ReadCalendar().items.isEmpty());
    EXPECT_TRUE(client.Outlook_ReadContacts().items.isEmpty());

    EXPECT_EQ(client.Outlook_AddNote(u"Milk & eggs\n\nfor Zoë; soon, \\"_s), QString());
    fill(u"memo"_s, "BEGIN:VJOURNAL\r\nUID:m1\r\nEND:VJOURNAL\r\n");
    fill(u"memo"_s, "BEGIN:VJOURNAL\r\nUID:m2\r\nSUMMARY:Keys\r\nDESCRIPTION:in the\\ndrawer\r\n"
                    "END:VJOURNAL\r\n");
    EXPECT_EQ(
        sorted(client.Outlook_ReadNotes().items),
        (QStringList{QString(), u"Keys\nin the\ndrawer"_s, u"Milk & eggs\n\nfor Zoë; soon, \\"_s}));

    fill(u"event"_s, "BEGIN:VEVENT\r\nUID:e1\r\nDTSTART:20260907T090000\r\n"
                     "DTEND:20260907T100000\r\nRRULE:FREQ=WEEKLY\r\nSUMMARY:Staff meeting\r\n"
                     "DESCRIPTION:Hall\r\nEND:VEVENT\r\n");
    fill(u"event"_s, "BEGIN:VEVENT\r\nUID:e2\r\nDTSTART;VALUE=DATE:20260910\r\n"
                     "SUMMARY:Trip\r\nEND:VEVENT\r\n");
    fill(u"event"_s, "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VTIMEZONE\r\nTZID:Invited\r\n"
                     "BEGIN:STANDARD\r\nDTSTART:19700101T000000\r\nTZOFFSETFROM:+0300\r\n"
                     "TZOFFSETTO:+0300\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n"
                     "BEGIN:VEVENT\r\nUID:e3\r\nDTSTART;TZID=Invited:20260914T110000\r\n"
                     "SUMMARY:Visit\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
    QList<MailEvent> read = client.Outlook_ReadCalendar().items;
    ASSERT_EQ(read.size(), 3);
    std::sort(read.begin(), read.end(),
              [](const MailEvent& a, const MailEvent& b) { return a.Start < b.Start; });
    EXPECT_EQ(read[0].Start, QDateTime(QDate(2026, 9, 7), QTime(9, 0)));
    EXPECT_TRUE(read[0].IsRecurring);
    EXPECT_EQ(read[0].Subject + u'|' + read[0].Body, u"Staff meeting|Hall"_s);
    EXPECT_EQ(read[1].Start.date(), QDate(2026, 9, 10));
    EXPECT_FALSE(read[1].IsRecurring);
    EXPECT_EQ(read[1].Subject + u'|' + read[1].Body, u"Trip|"_s);
    EXPECT_EQ(read[2].Start.toUTC(), QDateTime(QDate(2026, 9, 14), QTime(8, 0), Qt::UTC));

    fill(u"contact"_s, "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann O'Brien\r\nN:O'Brien;Ann\r\n"
                       "EMAIL:ann@home.example\r\nEMAIL:ann@school.example\r\n"
                       "TEL;TYPE=HOME,VOICE:1\r\nTEL;TYPE=CELL:2\r\nTEL;TYPE=HOME,FAX:3\r\n"
                       "TEL;TYPE=WORK,VOICE:4\r\nTEL;TYPE=WORK,FAX:5\r\n"
                       "ADR;TYPE=HOME:;;1 High Street;Town;Shire;AB1 2CD;England\r\n"
                       "ADR;TYPE=WORK:;;School Lane;Town;;XY9;\r\nEND:VCARD\r\n");
    fill(u"contact"_s, "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Bo\r\nN:;Bo\r\nEND:VCARD\r\n");
    fill(u"contact"_s, "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Friends\r\nX-EVOLUTION-LIST:TRUE\r\n"
                       "EMAIL:a@b.example\r\nEND:VCARD\r\n");
    EXPECT_EQ(client.Outlook_ReadContacts().fault, QString());
    QList<MailContact> contacts = client.Outlook_ReadContacts().items;
    ASSERT_EQ(contacts.size(), 2);
    if (contacts[0].LastName.isEmpty())
        std::swap(contacts[0], contacts[1]);
    const MailContact& ann = contacts[0];
    EXPECT_EQ((QStringList{ann.FirstName, ann.LastName, ann.Email1Address, ann.Email2Address,
                           ann.HomeTelephoneNumber, ann.MobileTelephoneNumber, ann.HomeFaxNumber,
                           ann.BusinessTelephoneNumber, ann.BusinessFaxNumber}
                   .join(u'|')),
              u"Ann|O'Brien|ann@home.example|ann@school.example|1|2|3|4|5"_s);
    EXPECT_EQ(ann.HomeAddress, u"1 High Street\nTown\nShire\nEngland"_s);
    EXPECT_EQ(ann.HomeAddressPostalCode, u"AB1 2CD"_s);
    EXPECT_EQ(ann.BusinessAddress, u"School Lane\nTown"_s);
    EXPECT_EQ(ann.BusinessAddressPostalCode, u"XY9"_s);
    EXPECT_EQ(contacts[1].FirstName + u'|' + contacts[1].LastName, u"Bo|"_s);
}
