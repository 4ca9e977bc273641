#include "organiser/address_book.h"

#include "core/engine_failure.h"
#include "core/progress.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "organiser/address_book_settings.h"
#include "organiser/contact_csv.h"
#include "organiser/mail_contacts.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox bookFailure{.title = u"Address Book Error"};
const QString FrontPageField = u"FrontPageInfo"_s;
/// A file of more bytes is no export of an address book.
constexpr qint64 largestCsv = 64LL << 20;

dao::Value textOrNull(const QString& text) {
    return text.isEmpty() ? dao::Value() : dao::Value(text);
}

bool comesBefore(const ContactEntry& a, const ContactEntry& b) {
    const int surnames = dao::compareText(a.surname, b.surname);
    return surnames != 0 ? surnames < 0 : dao::compareText(a.forename, b.forename) < 0;
}

} // namespace

AddressBook::AddressBook(Session& session) : m_session(session) {}

QString AddressBook::folder() const {
    return m_session.AppPath;
}

bool AddressBook::load_Contacts_DB() {
    return open(folder() + u"AddressBook.mdb"_s);
}

bool AddressBook::open(const QString& path) {
    close();
    return tryTelling(m_session.GetSeams().prompts, bookFailure, [&] { openFile(path); }) &&
           isOpen();
}

void AddressBook::openFile(const QString& path) {
    if (!QFileInfo::exists(path)) {
        const ProgressWindow window(m_session.GetSeams().progress,
                                    u"Creating Address Book database:"_s);
        m_book = m_session.Engine().CreateDatabase(path, dao::GeneralLocale.toString());
    } else {
        m_book = m_session.Engine().OpenDatabase(path, false, false, dao::connectText({}));
        if (m_book.isJetFile() && !convert(path))
            return m_book.Close();
    }
    ensureTables();
    const dao::Recordset admin = m_book.OpenRecordset(AdminTable, dao::RecordsetType::Snapshot);
    m_frontPage = admin.EOF_() ? QString() : admin.Collect(FrontPageField).toText();
    m_contacts = m_book.OpenRecordset(ContactsTable);
    for (int field = 0; field < ContactFieldCount; ++field)
        m_fields += m_contacts.Fields(contactFieldName(field));
}

/// The converted copy takes the original's name, which stays beside it under another.
bool AddressBook::convert(const QString& path) {
    m_book.Close();
    const QString stem = path.chopped(4);
    const QString copy = stem + u".converted.mdb"_s;
    const QString original = stem + u".original.mdb"_s;
    if (QFileInfo::exists(original)) {
        tell(u"The address book is of an older program and has to be converted, but there is "
             "already an original beside it:\n"_s +
                 original,
             u"Address Book"_s, WarningIcon);
        return false;
    }
    QFile::remove(copy);
    m_session.Engine().CompactDatabase(path, copy, dao::GeneralLocale.toString());
    if (!QFile::rename(path, original) || !QFile::rename(copy, path)) {
        QFile::rename(original, path);
        QFile::remove(copy);
        throw dao::EngineError(dao::DiskError, u"The converted address book could not take its "
                                               "place."_s);
    }
    tell(u"The address book was of an older program and has been converted. The original is "
         "kept as:\n"_s +
             original,
         u"Address Book"_s, InformationIcon);
    m_book = m_session.Engine().OpenDatabase(path);
    return true;
}

/// Also what a creation that was cut off has left undone.
void AddressBook::ensureTables() {
    Progress& progress = m_session.GetSeams().progress;
    dao::Transaction whole(m_book);
    if (!TableExists(m_book, ContactsTable)) {
        constexpr int begun = 10;
        constexpr int appended = 85;
        progress.UpdateProgress(begun, u"Creating Contacts Table"_s);
        m_book.TableDefs().Append(schemaTableDef(Table::Contacts));
        progress.UpdateProgress(appended, u"Appending Contacts Table"_s);
    }
    if (!TableExists(m_book, AdminTable))
        m_book.TableDefs().Append(schemaTableDef(Table::AddressBookAdmin));
    whole.commit();
}

void AddressBook::close() {
    m_fields.clear();
    m_contacts.Close();
    if (m_book.isOpen())
        m_book.Close();
}

/// Of a new record what is empty stays Null.
void AddressBook::fill(const Contact& contact, bool isNew) {
    for (int field = 0; field < ContactFieldCount; ++field) {
        const QString& text = contact.at(static_cast<size_t>(field));
        const bool isName = field == Forename || field == Surname;
        if (!isNew || !text.isEmpty())
            m_fields.at(field).setValue(isName ? textOrNull(text) : dao::Value(text));
    }
    m_contacts.SetCollect(u"GroupID", textOrNull(contactGroup(contact[Surname])));
    m_contacts.Update();
}

bool AddressBook::keep(const std::function<void()>& work) {
    try {
        work();
    } catch (const dao::EngineError& error) {
        if (m_failure.first())
            tellFailure(m_session.GetSeams().prompts, bookFailure, error);
        return false;
    }
    m_failure.reset();
    return true;
}

bool AddressBook::setFrontPage(const QString& text) {
    if (text == m_frontPage)
        return true;
    return keep([&] {
        dao::Recordset admin = m_book.OpenRecordset(AdminTable);
        if (admin.EOF_())
            admin.AddNew();
        else
            admin.Edit();
        admin.SetCollect(FrontPageField, text);
        admin.Update();
        m_frontPage = text;
    });
}

QList<ContactEntry> AddressBook::entries() {
    QList<ContactEntry> entries;
    tryTelling(m_session.GetSeams().prompts, bookFailure, [&] {
        if (m_contacts.RecordCount() == 0)
            return;
        for (m_contacts.MoveFirst(); !m_contacts.EOF_(); m_contacts.MoveNext())
            entries += ContactEntry{.place = m_contacts.Bookmark(),
                                    .forename = m_fields.at(Forename).text(),
                                    .surname = m_fields.at(Surname).text(),
                                    .letter = treeLetter(m_contacts.Collect(u"GroupID").toText())};
    });
    std::stable_sort(entries.begin(), entries.end(), comesBefore);
    return entries;
}

std::optional<Contact> AddressBook::contact(const ContactEntry& entry) {
    Contact contact;
    try {
        m_contacts.SetBookmark(entry.place);
        for (int field = 0; field < ContactFieldCount; ++field)
            contact.at(static_cast<size_t>(field)) = m_fields.at(field).text();
    } catch (const dao::EngineError& error) {
        if (error.number() == dao::RecordDeleted)
            tell(u"Can't find "_s + entry.text(), {}, WarningIcon);
        else
            tellFailure(m_session.GetSeams().prompts, bookFailure, error);
        return std::nullopt;
    }
    return contact;
}

bool AddressBook::save(const dao::Bookmark& place, const Contact& contact) {
    return keep([&] {
        m_contacts.SetBookmark(place);
        m_contacts.Edit();
        fill(contact, false);
    });
}

std::optional<dao::Bookmark> AddressBook::Add_new_contact(const QString& name) {
    const ContactName parts = splitContactName(name);
    if (!parts.isWhole()) {
        tell(u"Invalid Name: the contact name must have a Forename and Surname only"_s, {},
             WarningIcon);
        return std::nullopt;
    }
    std::optional<dao::Bookmark> place;
    tryTelling(m_session.GetSeams().prompts, bookFailure, [&] {
        if (FindInRecordset(m_contacts,
                            u"Surname = %1 AND Forename = %2"_s.arg(
                                dao::writeText(parts.surname), dao::writeText(parts.forename))))
            return tell(u"A contact for %1 already exists."_s.arg(name.trimmed()),
                        u"Duplicate entry"_s, WarningIcon);
        Contact contact;
        contact[Forename] = parts.forename;
        contact[Surname] = parts.surname;
        m_contacts.AddNew();
        fill(contact, true);
        m_contacts.SetBookmark(m_contacts.LastModified());
        place = m_contacts.Bookmark();
    });
    return place;
}

bool AddressBook::mayDelete(const QString& text, const QString& title, bool group) {
    const Setting<bool>& silent =
        group ? setting::DontShowDeleteGroupPrompt : setting::DontShowDeleteContactPrompt;
    Settings& settings = m_session.GetSettings();
    if (settings.get(silent))
        return true;
    BoxLook look;
    look.checkBox = u"Don't show this message again. (automatically delete)"_s;
    const BoxAnswer answer = m_session.GetSeams().prompts.msg_Box(
        text + u"\nDo you wish to continue?"_s, YesNoButtons | WarningIcon | SecondButtonDefault,
        title, look);
    if (answer.button == AnswerYes && answer.ticked)
        settings.set(silent, true);
    return answer.button == AnswerYes;
}

bool AddressBook::deleteContact(const ContactEntry& entry) {
    if (!mayDelete(u"You are about to delete the Contact "_s + entry.text(), u"Delete Contact"_s,
                   false))
        return false;
    return tryTelling(m_session.GetSeams().prompts, bookFailure, [&] {
        try {
            m_contacts.SetBookmark(entry.place);
        } catch (const dao::EngineError& error) {
            if (error.number() != dao::RecordDeleted)
                throw;
            return tell(u"Sorry, can't find "_s + entry.text(), u"Can't delete"_s, WarningIcon);
        }
        m_contacts.Delete();
    });
}

bool AddressBook::deleteGroup(QChar letter) {
    if (!mayDelete(u"You are about to delete ALL Contacts in the category "_s + letter,
                   u"Delete ALL Contacts"_s, true))
        return false;
    return tryTelling(m_session.GetSeams().prompts, bookFailure, [&] {
        dao::Transaction whole(m_book);
        for (const ContactEntry& entry : entries()) {
            if (entry.letter != letter)
                continue;
            m_contacts.SetBookmark(entry.place);
            m_contacts.Delete();
        }
        whole.commit();
    });
}

bool AddressBook::import_csv(const QString& path) {
    QFile file(path);
    if (file.size() > largestCsv || !file.open(QIODevice::ReadOnly)) {
        tell(u"The file could not be read, or is too large for an address book:\n"_s + path,
             u"CSV file import"_s, WarningIcon);
        return false;
    }
    const ContactCsv csv = readContactCsv(file.readAll());
    if (!csv.hasHeader) {
        tell(u"The first line of the file does not name the columns of an address book, such as "
             "\"First Name\" and \"Last Name\":\n"_s +
                 path,
             u"CSV file import"_s, WarningIcon);
        return false;
    }
    return addImported(csv.contacts, csv.cutTexts, u"CSV file import"_s);
}

bool AddressBook::Extract_From_Outlook() {
    const QString title = u"Import from Outlook"_s;
    const Seams& seams = m_session.GetSeams();
    MailItems<MailContact> read;
    {
        const ProgressWindow window(seams.progress, title);
        seams.progress.UpdateProgress(0, u"Reading the contacts"_s);
        read = seams.mail.Outlook_ReadContacts();
    }
    QList<Contact> contacts = contactsOfMail(read.items);
    if (contacts.isEmpty()) {
        tell(
            nothingFoundText(u"Sorry but ORVA cannot find any contacts in Outlook for importing!"_s,
                             read.fault),
            u"No contacts found"_s, WarningIcon);
        return false;
    }
    int cutTexts = 0;
    for (Contact& contact : contacts)
        cutTexts += cutToFit(contact);
    return addImported(contacts, cutTexts, title);
}

bool AddressBook::addImported(const QList<Contact>& contacts, int cutTexts, const QString& title) {
    const bool isDone = tryTelling(m_session.GetSeams().prompts, bookFailure, [&] {
        dao::Transaction whole(m_book);
        for (const Contact& contact : contacts) {
            m_contacts.AddNew();
            fill(contact, true);
        }
        whole.commit();
    });
    if (isDone)
        tell(u"%1 contacts have been imported.%2"_s.arg(contacts.size())
                 .arg(cutTexts == 0
                          ? QString()
                          : u"\n%1 values were too long for their field and have been cut."_s.arg(
                                cutTexts)),
             title, InformationIcon);
    return isDone;
}

void AddressBook::tell(const QString& text, const QString& title, int icon) const {
    m_session.GetSeams().prompts.msg_Box(text, OkButton | icon, title);
}
