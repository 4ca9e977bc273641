// The help as the rules know it: what a search finds, which page is about a control, and what
// happens to a help file that is missing, damaged or old.

#include "help/help.h"
#include "help/help_file.h"
#include "support/engine_files.h"

#include <QDateTime>

namespace {

HelpPage page(const QString& name, int number, const QString& title, const QStringList& keywords,
              const QStringList& contexts, const QString& text) {
    return {name, number, title, keywords, contexts, u"# "_s + title + u"\n\n"_s + text, text};
}

HelpBook sampleBook() {
    return {
        {page(u"backup"_s, 22, u"Backing up"_s, {u"safety copy"_s, u"backup"_s}, {},
              u"Five backups are kept.\nThe newest backup is 001."_s),
         page(u"restore"_s, 23, u"Restoring a backup"_s, {u"Backup"_s, u"zip"_s}, {u"StartupWiz"_s},
              u"Choose one of your files. "_s + u"Other words stand here. "_s.repeated(20) +
                  u"Its caf\u00e9 & <name> is 'Year.001'."_s),
         page(u"classes"_s, 12, u"Your classes"_s, {u"classcode"_s},
              {u"StartupWiz.f1(1)"_s, u"msgFrm.Calendar"_s, u"StartupWiz.f1(1).List1"_s},
              u"A class has a code."_s)},
        {{u"Files"_s, {0, 1}}, {u"Set-up"_s, {2}}},
        {{u"one.png"_s, QByteArray("\x89PNG\0\1", 6)}}};
}

QStringList found(const QString& words) {
    const HelpBook book = sampleBook();
    QStringList names;
    for (const HelpHit& hit : book.search(words))
        names += book.pages[hit.page].name;
    return names;
}

class HelpFileTest : public testing::Test {
protected:
    HelpFileTest() { EXPECT_TRUE(writeHelpFile(sampleBook(), stock)); }

    QTemporaryDir folder;
    QString stock = folder.filePath(u"stock.hlp"_s);
    QString copy = folder.filePath(u"person/ORVA.hlp"_s);
};

} // namespace

TEST(Help, SearchPutsTitlesBeforeKeywordsBeforeTexts) {
    const struct {
        QString words;
        QStringList pages;
    } cases[] = {
        {u"backup"_s, {u"restore"_s, u"backup"_s}}, // in title and keywords; in keywords and text
        {u"BACKUP five"_s, {u"backup"_s}},          // all words, in any case
        {u"back"_s, {u"backup"_s, u"restore"_s}},   // beginnings
        {u"class"_s, {u"classes"_s}},
        {u"ackup"_s, {}}, // no ends
        {u"backup classcode"_s, {}},
        {u"zip"_s, {u"restore"_s}},
        {u"Caf\u00c9 <name>"_s, {u"restore"_s}},
        {u""_s, {}},
        {u" .,-'\" "_s, {}},
    };
    for (const auto& [words, pages] : cases)
        EXPECT_EQ(found(words), pages) << words.toStdString();
}

TEST(Help, AnExcerptHasTheWordsMarked) {
    const HelpBook book = sampleBook();
    for (const QString& words : {u"name year"_s, u"files"_s, u"newest kept"_s, u"stand"_s}) {
        const QList<HelpHit> hits = book.search(words);
        ASSERT_FALSE(hits.isEmpty()) << words.toStdString();
        const HelpHit& hit = hits.first();
        EXPECT_LT(hit.excerpt.size(), 220);
        EXPECT_FALSE(hit.excerpt.contains(u'\n'));
        QStringList marked;
        for (const HelpMark& mark : hit.marks)
            marked += hit.excerpt.mid(mark.start, mark.length).toLower();
        for (const QString& word : words.split(u' '))
            EXPECT_TRUE(marked.contains(word)) << hit.excerpt.toStdString();
    }
}

TEST(Help, TheIndexJoinsKeywordsOfAnyCase) {
    QStringList lines;
    for (const HelpKeyword& keyword : sampleBook().index())
        lines += keyword.word + u' ' + QString::number(keyword.pages.size());
    EXPECT_EQ(lines,
              QStringList({u"backup 2"_s, u"classcode 1"_s, u"safety copy 1"_s, u"zip 1"_s}));
}

TEST(Help, TheTopicOfAControlIsTheNearestThatIsKnown) {
    const struct {
        QStringList path;
        QString page;
    } cases[] = {
        {{u"StartupWiz"_s}, u"restore"_s},
        {{u"cmdNext"_s, u"StartupWiz"_s, u"mdiORVA"_s}, u"restore"_s},
        {{u"Text2"_s, u"f1(1)"_s, u"pages"_s, u"StartupWiz"_s}, u"classes"_s},
        {{u"Text1"_s, u"f1(0)"_s, u"StartupWiz"_s}, u"restore"_s},
        {{u"txtDate"_s, u"Calendar(1)"_s, u"msgFrm"_s}, u"classes"_s}, // an element of an array
        {{u"f1(1)"_s, u"OtherWiz"_s}, {}},
        {{u"msgFrm"_s}, {}},
        {{}, {}},
    };
    const HelpBook book = sampleBook();
    for (const auto& [path, wanted] : cases)
        EXPECT_EQ(book.topicOf(path), book.pageNamed(wanted)) << path.join(u' ').toStdString();
    EXPECT_EQ(book.pageNumbered(12), 2);
    EXPECT_EQ(book.pageNumbered(13), -1);
}

TEST_F(HelpFileTest, ABookComesBackAsItWas) {
    const ReadHelp read = readHelpFile(stock);
    ASSERT_TRUE(read.book) << read.fault.toStdString();
    const HelpBook wanted = sampleBook();
    ASSERT_EQ(read.book->pages.size(), wanted.pages.size());
    for (int i = 0; i < wanted.pages.size(); ++i) {
        const HelpPage& page = read.book->pages[i];
        EXPECT_EQ(page.name, wanted.pages[i].name);
        EXPECT_EQ(page.number, wanted.pages[i].number);
        EXPECT_EQ(page.title, wanted.pages[i].title);
        EXPECT_EQ(page.keywords, wanted.pages[i].keywords);
        EXPECT_EQ(page.contexts, wanted.pages[i].contexts);
        EXPECT_EQ(page.markdown, wanted.pages[i].markdown);
        EXPECT_EQ(page.text, wanted.pages[i].text);
    }
    ASSERT_EQ(read.book->chapters.size(), 2);
    EXPECT_EQ(read.book->chapters[0].title, u"Files");
    EXPECT_EQ(read.book->chapters[0].pages, QList<int>({0, 1}));
    EXPECT_EQ(read.book->pictures, wanted.pictures);
}

TEST_F(HelpFileTest, AFileThatIsNotWholeIsRefused) {
    const QByteArray whole = bytesOf(stock);
    QByteArray flipped = whole;
    flipped[whole.size() / 2] = static_cast<char>(flipped[whole.size() / 2] ^ 1);
    const QByteArray broken[] = {
        {},          "ORVA",  whole.left(8),        whole.left(40), whole.chopped(1),
        whole + 'x', flipped, QByteArray(5000, 'x')};
    for (const QByteArray& bytes : broken) {
        writeFile(stock, bytes);
        const ReadHelp read = readHelpFile(stock);
        EXPECT_FALSE(read.book);
        EXPECT_TRUE(read.fault.contains(u"damaged") && read.fault.contains(stock));
    }
    EXPECT_TRUE(readHelpFile(copy).fault.contains(u"missing"));
    EXPECT_FALSE(writeHelpFile(sampleBook(), folder.filePath(u"none/ORVA.hlp"_s)));
}

TEST_F(HelpFileTest, ThePersonsCopyFollowsTheStock) {
    EXPECT_TRUE(openHelpFile(copy, stock).book); // the first time
    EXPECT_EQ(bytesOf(copy), bytesOf(stock));

    writeFile(copy, "damaged");
    EXPECT_TRUE(openHelpFile(copy, stock).book);

    HelpBook newer = sampleBook();
    newer.pages[0].title = u"Newer"_s;
    ASSERT_TRUE(writeHelpFile(newer, stock));
    QFile file(stock);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime::currentDateTime().addDays(1), QFileDevice::FileModificationTime);
    file.close();
    EXPECT_EQ(openHelpFile(copy, stock).book->pages[0].title, u"Newer");

    ASSERT_TRUE(QFile::remove(stock)); // the copy does without
    EXPECT_TRUE(openHelpFile(copy, stock).book);
    writeFile(copy, "damaged");
    EXPECT_TRUE(openHelpFile(copy, stock).fault.contains(u"damaged"));
    ASSERT_TRUE(QFile::remove(copy));
    EXPECT_TRUE(openHelpFile(copy, stock).fault.contains(u"missing"));
}
