#pragma once

#include "organiser/contact.h"
#include "store/engine/engine.h"
#include "store/kept_row.h"

#include <QList>

#include <functional>
#include <optional>

class Session;

/// A contact as the tree lists it.
struct ContactEntry {
    dao::Bookmark place; ///< of its record, as long as the book is open
    QString forename;
    QString surname;
    QChar letter; ///< of the tree; null: it is in none of its groups

    QString text() const { return forename + u' ' + surname; }
};

/// The address book, a file of its own in the person's folder, which lasts from year to year. What
/// can't be done is told, and leaves the file as it was.
class AddressBook {
public:
    explicit AddressBook(Session& session);
    ~AddressBook() { close(); }

    /// Opens the book, which is made where it is missing and converted where it is a genuine file
    /// of the older kind, whose original stays beside it. Answers whether it is open.
    bool load_Contacts_DB();
    /// The same for a file elsewhere.
    bool open(const QString& path);
    bool isOpen() const { return m_book.isOpen(); }
    void close();
    QString folder() const; ///< with a separator at its end

    QString frontPage() const { return m_frontPage; }
    bool setFrontPage(const QString& text);

    /// All contacts, by surname and forename.
    QList<ContactEntry> entries();
    /// None where it can't be read.
    std::optional<Contact> contact(const ContactEntry& entry);
    /// A failure of this and of setFrontPage, which come while a person types, is told once, until
    /// something is written or `tellAgain`.
    bool save(const dao::Bookmark& place, const Contact& contact);
    void tellAgain() { m_failure.reset(); }
    /// Adds a contact by its name, unless the name is none, or there already. Answers its place.
    std::optional<dao::Bookmark> Add_new_contact(const QString& name);
    /// Ask first where the settings say so. Answer whether something was deleted.
    bool deleteContact(const ContactEntry& entry);
    bool deleteGroup(QChar letter);

    /// Imports the comma-separated contacts of a file, all or none, and says how many.
    bool import_csv(const QString& path);
    /// The same with the contacts of the mail client.
    bool Extract_From_Outlook();

private:
    void openFile(const QString& path);
    bool convert(const QString& path);
    void ensureTables();
    bool keep(const std::function<void()>& work);
    void fill(const Contact& contact, bool isNew);
    bool addImported(const QList<Contact>& contacts, int cutTexts, const QString& title);
    void tell(const QString& text, const QString& title, int icon) const;
    bool mayDelete(const QString& text, const QString& title, bool group);

    Session& m_session;
    dao::Database m_book;
    dao::Recordset m_contacts;
    QList<dao::RecordsetField> m_fields; ///< of it, by ContactField
    QString m_frontPage;
    ToldOnce m_failure;
};
