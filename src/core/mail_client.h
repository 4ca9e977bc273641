#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

/// How the rules reach the person's mail client: its calendar, its contacts and its notes, each of
/// those that it keeps by default.

/// An item of the calendar. One that recurs is one item, at its first start.
struct MailEvent {
    QDateTime Start; ///< in the computer's own time
    bool IsRecurring = false;
    QString Subject;
    QString Body;
};

/// A contact. What it lacks is empty; an address has a line for each of its parts, without the
/// postal code.
struct MailContact {
    QString LastName;
    QString FirstName;
    QString Email1Address;
    QString HomeTelephoneNumber;
    QString MobileTelephoneNumber;
    QString HomeFaxNumber;
    QString HomeAddress;
    QString HomeAddressPostalCode;
    QString BusinessTelephoneNumber;
    QString BusinessAddress;
    QString BusinessFaxNumber;
    QString BusinessAddressPostalCode;
    QString Email2Address;
};

/// What was read.
template<typename Item>
struct MailItems {
    QList<Item> items;
    QString fault; ///< why nothing could be read, for the person; empty where it could
};

/// A mail client. Every operation reaches it anew, and gives up after some seconds; items of a kind
/// that is not asked for are passed over.
class MailClient {
public:
    virtual ~MailClient() = default;

    /// The texts of the notes, their lines divided by '\n'.
    virtual MailItems<QString> Outlook_ReadNotes() = 0;
    virtual MailItems<MailEvent> Outlook_ReadCalendar() = 0;
    virtual MailItems<MailContact> Outlook_ReadContacts() = 0;
    /// Adds a note of plain text. Answers why it could not be added; empty where it is.
    virtual QString Outlook_AddNote(const QString& text) = 0;
};

/// The mail client of a program that has none.
MailClient& absentMailClient();

/// What the person is told where nothing was found: the sentence for that, and the fault behind it
/// where there is one.
QString nothingFoundText(const QString& sentence, const QString& fault);
