// The address book: contacts from comma-separated files, and the book's own file.

#include "organiser/address_book.h"
#include "organiser/contact_csv.h"
#include "organiser/contact_tree_model.h"
#include "support/engine_places.h"
#include "support/year_session.h"

#include <QAbstractItemModelTester>

namespace {

class AddressBookTest : public YearSession {
protected:
    AddressBookTest() { session.Start(path(u"app"_s)); }
    QStringList texts(AddressBook& book) {
        QStringList all;
        for (const ContactEntry& entry : book.entries())
            all += entry.text();
        return all;
    }
    QString csv(const QByteArray& bytes) {
        QFile file(path(u"addresses.csv"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return file.fileName();
    }
};

QStringList namesOf(const ContactCsv& csv) {
    QStringList names;
    for (const Contact& contact : csv.contacts)
        names += contact[Forename] + u'|' + contact[Surname] + u'|' + contact[HomeAddress];
    return names;
}

} // namespace

TEST(ContactCsv, RecordsAreReadAsTheyAreMeant) {
    const QByteArray header = "First Name,Last Name,Home Street,Name\n";
    const struct {
        const char* what;
        QByteArray file;
        QStringList names;
    } cases[] = {
        {"plain, without the last line break", header + "Ann,Lee,1 Rd,", {u"Ann|Lee|1 Rd"_s}},
        {"with carriage returns and empty lines",
         header + "\r\nAnn,Lee,,\r\n\r\n",
         {u"Ann|Lee|"_s}},
        {"a line break and commas in quotes",
         header + "Ann,Lee,\"1 Rd,\nTown\",\nBo,Ng,,",
         {u"Ann|Lee|1 Rd,\nTown"_s, u"Bo|Ng|"_s}},
        {"doubled quotes", header + "Ann,Lee,\"\"\"The\"\" Rd\",", {u"Ann|Lee|\"The\" Rd"_s}},
        {"a record broken without quotes", header + "Ann,Lee\n,1 Rd,", {u"Ann|Lee |1 Rd"_s}},
        {"only a name", header + ",,,Ann van Lee\n,,,Single\n", {u"Ann|van Lee|"_s}},
        {"UTF-8", header + "Ren\xc3\xa9,\xc3\x89lan,,", {u"René|Élan|"_s}},
        {"UTF-8 with its mark", "\xef\xbb\xbf" + header + "A,B,,", {u"A|B|"_s}},
        {"Windows-1252", header + "Ren\xe9,\xc9lan,,", {u"René|Élan|"_s}},
    };
    for (const auto& [what, file, names] : cases)
        EXPECT_EQ(namesOf(readContactCsv(file)), names) << what;
    EXPECT_FALSE(readContactCsv({}).hasHeader);
    EXPECT_FALSE(readContactCsv("Vorname,Nachname\nA,B").hasHeader);
    const ContactCsv cut = readContactCsv(header + "A," + QByteArray(300, 'b') + ",,");
    EXPECT_EQ(cut.cutTexts, 1);
    EXPECT_EQ(cut.contacts.first()[Surname].size(), 250);
}

TEST_F(AddressBookTest, ContactsAreFiledByTheirSurnames) {
    AddressBook book(session);
    ASSERT_TRUE(book.load_Contacts_DB());
    for (const QString& name :
         {u"Ann O'Brien"_s, u"Zoë Élan"_s, u"Bo 4th"_s, u"Jan van der Berg"_s})
        EXPECT_TRUE(book.Add_new_contact(name));
    EXPECT_EQ(texts(book).size(), 4);
    seams.prompts.expect(PromptKind::Message, u"Duplicate entry"_s, AnswerOk);
    EXPECT_FALSE(book.Add_new_contact(u"Ann O'Brien"_s));
    seams.prompts.expect(PromptKind::Message, {}, AnswerOk);
    EXPECT_FALSE(book.Add_new_contact(u"Single"_s));
    ContactTreeModel model;
    const QAbstractItemModelTester tester(&model);
    model.setEntries(book.entries());
    const auto group = [&](char16_t letter) {
        const QModelIndex parent = model.index(letter - u'A', 0);
        QStringList names;
        for (int row = 0; row < model.rowCount(parent); ++row)
            names += model.index(row, 0, parent).data().toString();
        return names;
    };
    EXPECT_EQ(group(u'E'), QStringList(u"Zoë Élan"_s));
    EXPECT_EQ(group(u'V'), QStringList(u"Jan van der Berg"_s));
    const ContactEntry first = book.entries().value(0); // "4th" comes before the letters
    EXPECT_EQ(first.text(), u"Bo 4th"_s);
    EXPECT_TRUE(first.letter.isNull());
}

TEST_F(AddressBookTest, EqualNamesKeepTheirOwnRecords) {
    AddressBook book(session);
    ASSERT_TRUE(book.load_Contacts_DB());
    seams.prompts.expect(PromptKind::Message, u"CSV file import"_s, AnswerOk);
    EXPECT_TRUE(
        book.import_csv(csv("First Name,Last Name,Home Phone\nAnn,Lee,1\nAnn,Lee,2\nBo,Ng,3\n")));
    Contact second = book.contact(book.entries().value(1)).value();
    EXPECT_EQ(second[HomeTelephone], u"2"_s);
    second[HomeTelephone] = u"22"_s;
    EXPECT_TRUE(book.save(book.entries().value(1).place, second));
    EXPECT_EQ(book.contact(book.entries().value(0)).value()[HomeTelephone], u"1"_s);
    seams.prompts.expect(PromptKind::Message, u"Delete Contact"_s, BoxAnswer{AnswerYes, true});
    EXPECT_TRUE(book.deleteContact(book.entries().value(0)));
    EXPECT_TRUE(book.deleteContact(book.entries().value(0))); // no longer asked
    EXPECT_EQ(texts(book), QStringList(u"Bo Ng"_s));
    seams.prompts.expect(PromptKind::Message, u"Delete ALL Contacts"_s, AnswerYes);
    EXPECT_TRUE(book.deleteGroup(u'N'));
    EXPECT_TRUE(texts(book).isEmpty());
}

TEST_F(AddressBookTest, TheBookOutlivesTheWindow) {
    {
        AddressBook book(session);
        ASSERT_TRUE(book.load_Contacts_DB());
        book.Add_new_contact(u"Ann Lee"_s);
        EXPECT_TRUE(book.setFrontPage(u"Dad's numbers"_s));
        AddressBook other(session);
        EXPECT_TRUE(other.load_Contacts_DB());
    }
    AddressBook book(session);
    ASSERT_TRUE(book.load_Contacts_DB());
    EXPECT_EQ(book.frontPage(), u"Dad's numbers"_s);
    EXPECT_EQ(texts(book), QStringList(u"Ann Lee"_s));
    EXPECT_EQ(QFile::permissions(session.AppPath + u"AddressBook.mdb"_s) & QFile::ReadOther, 0);
    seams.prompts.expect(PromptKind::Message, u"CSV file import"_s, AnswerOk);
    EXPECT_FALSE(book.import_csv(csv("no,header\n1,2\n")));
}

TEST_F(AddressBookTest, ADamagedBookIsToldAndLeftAlone) {
    const QString file = session.AppPath + u"AddressBook.mdb"_s;
    QFile damaged(file);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write(QByteArray(5000, 'x'));
    damaged.close();
    seams.prompts.expect(PromptKind::Plain, u"Address Book Error"_s, AnswerOk);
    AddressBook book(session);
    EXPECT_FALSE(book.load_Contacts_DB());
    EXPECT_EQ(QFileInfo(file).size(), 5000);
}

TEST_F(AddressBookTest, AnOlderBookIsConvertedAndItsOriginalKept) {
    const QString file = session.AppPath + u"AddressBook.mdb"_s;
    ASSERT_TRUE(QFile::copy(::test::testData(u"jet/not_a_year.mdb"_s), file));
    seams.prompts.expect(PromptKind::Message, u"Address Book"_s, AnswerOk);
    AddressBook book(session);
    ASSERT_TRUE(book.load_Contacts_DB());
    EXPECT_TRUE(book.Add_new_contact(u"Ann Lee"_s));
    EXPECT_EQ(QFileInfo(session.AppPath + u"AddressBook.original.mdb"_s).size(),
              QFileInfo(::test::testData(u"jet/not_a_year.mdb"_s)).size());
}

TEST_F(AddressBookTest, TakesTheMailClientsContactsThatHaveBothNames) {
    AddressBook book(session);
    ASSERT_TRUE(book.load_Contacts_DB());
    seams.prompts.expect(PromptKind::Message, u"No contacts found"_s, AnswerOk);
    EXPECT_FALSE(book.Extract_From_Outlook());

    MailContact ann{.LastName = u"O'Brien"_s,
                    .FirstName = u"Ann"_s,
                    .Email1Address = u"e1"_s,
                    .HomeTelephoneNumber = u"t"_s,
                    .MobileTelephoneNumber = u"m"_s,
                    .HomeFaxNumber = u"f"_s,
                    .HomeAddress = QString(300, u'a'),
                    .HomeAddressPostalCode = u"p"_s,
                    .BusinessTelephoneNumber = u"wt"_s,
                    .BusinessAddress = u"w"_s,
                    .BusinessFaxNumber = u"wf"_s,
                    .BusinessAddressPostalCode = u"wp"_s,
                    .Email2Address = u"e2"_s};
    MailContact nameless = ann;
    nameless.LastName.clear();
    seams.mail.contacts.items = {ann, nameless};
    for (int import = 0; import < 2; ++import) { // no duplicate is looked for
        seams.prompts.expect(PromptKind::Message, u"Import from Outlook"_s, AnswerOk);
        EXPECT_TRUE(book.Extract_From_Outlook());
    }
    EXPECT_TRUE(seams.prompts.last().text.contains(u"1 values were too long"_s));
    EXPECT_EQ(texts(book), (QStringList{u"Ann O'Brien"_s, u"Ann O'Brien"_s}));
    const Contact kept = *book.contact(book.entries().constFirst());
    EXPECT_EQ(kept, (Contact{u"Ann"_s,
                             u"O'Brien"_s,
                             QString(255, u'a'),
                             u"p"_s,
                             u"e1"_s,
                             u"t"_s,
                             u"m"_s,
                             u"f"_s,
                             u"w"_s,
                             u"wp"_s,
                             u"wt"_s,
                             u"wf"_s,
                             u"e2"_s,
                             {}}));
}
