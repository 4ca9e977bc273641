// Workbooks as they leave the program, read back by a library of others.

#include "office/biff_stream.h"
#include "office/sheet_writer.h"
#include "office/spreadsheet.h"
#include "support/engine_files.h"
#include "support/workbook_cells.h"

#include <QDirIterator>

#include <limits>
#include <random>

namespace {

class SheetWriterTest : public EngineFiles {
protected:
    QStringList filesLeft() const { return QDir(path({})).entryList(QDir::Files | QDir::Hidden); }
    static QStringList temporaryFolders() {
        return QDir(u"/dev/shm"_s).entryList({u"orva-*"_s}, QDir::Dirs) +
               QDir::temp().entryList({u"orva-*"_s}, QDir::Dirs);
    }
    static Workbook bookOf(const QString& text) {
        Workbook book;
        book.addSheet(u"Sheet1"_s).put(0, 0, text);
        return book;
    }
};

/// Reads the texts of a workbook record by record, as the format's description has it.
class SharedTextsReader {
public:
    explicit SharedTextsReader(const QByteArray& stream) : m_rest(stream) { nextRecord(); }

    qint64 number(int bytes) {
        qint64 value = 0;
        for (int byte = 0; byte < bytes; ++byte)
            value |= qint64(static_cast<uchar>(m_record[byte])) << 8 * byte;
        m_record = m_record.sliced(bytes);
        return value;
    }
    QString text() {
        if (m_record.isEmpty())
            nextRecord();
        const qint64 length = number(2);
        bool isWide = number(1);
        QString text;
        while (text.size() < length) {
            if (m_record.isEmpty()) {
                nextRecord();
                isWide = number(1);
            }
            text += QChar(static_cast<char16_t>(number(isWide ? 2 : 1)));
        }
        return text;
    }
    bool atEnd() const { return m_record.isEmpty() && m_rest.isEmpty(); }

private:
    void nextRecord() {
        m_record = m_rest;
        number(2);
        const qint64 size = number(2);
        EXPECT_LE(size, BiffFields::Largest);
        m_rest = m_record.sliced(size);
        m_record = m_record.first(size);
    }

    QByteArray m_rest;
    QByteArray m_record;
};

} // namespace

TEST_F(SheetWriterTest, CellsReadBackAsTheyWerePut) {
    struct {
        CellContent content;
        QString read;
    } const cases[] = {
        {17.0, u"#17"_s},
        {-0.1, u"#-0.1"_s},
        {1e300, u"#1e+300"_s},
        {u"17"_s, u"17"_s},
        {u"007"_s, u"007"_s},
        {u"=1+1"_s, u"=1+1"_s},
        {QDate(2026, 9, 7), u"@2026-09-07"_s},
        {u"Zoë Novák"_s, u"Zoë Novák"_s},
        {u"Ł 漢字 😀"_s, u"Ł 漢字 😀"_s},
        {QString(16000, u'é'), QString(16000, u'é')},
        {u"one\r\ntwo\rthree"_s, u"one\ntwo\nthree"_s},
        {u"a\u0001b\uFFFF"_s, u"ab"_s},
        {u""_s, QString()},
        {std::monostate(), QString()},
    };
    Workbook book;
    Sheet& sheet = book.addSheet(u"Grades"_s);
    book.addSheet(u"Term(2)"_s).put(2, 1, u"x"_s);
    for (int row = 0; const auto& each : cases)
        sheet.put(row++, 0, each.content);
    sheet.addLooks({0, 0, 3, 4}, CellLook::Bold | CellLook::Filled | CellLook::Bordered);
    saveWorkbook(book, path(u"a.xls"_s));
    const QList<ReadSheet> read = readWorkbook(path(u"a.xls"_s));
    ASSERT_EQ(read.size(), 2);
    EXPECT_EQ(read[0].name, u"Grades"_s);
    EXPECT_EQ(read[1].name, u"Term(2)"_s);
    EXPECT_EQ(read[1].rows[2], (QStringList{{}, u"x"_s}));
    for (int row = 0; const auto& each : cases)
        EXPECT_EQ(read[0].rows[row++][0].toStdString(), each.read.toStdString());
}

/// In both formats, and texts over many records too.
TEST_F(SheetWriterTest, TheProgramReadsItsOwnWorkbooks) {
    const QDate date(2026, 9, 7);
    struct {
        CellContent content;
        QString read;
    } const cases[] = {
        {17.0, u"17"_s},
        {-0.1, u"-0.1"_s},
        {std::numeric_limits<double>::infinity(), u"inf"_s},
        {u"007"_s, u"007"_s},
        {u"=1+1"_s, u"=1+1"_s},
        {u"<a> & \"b\" "_s, u"<a> & \"b\" "_s},
        {date, QLocale().toString(date, QLocale::ShortFormat)},
        {QString(Sheet::LongestText, u'é'), QString(Sheet::LongestText, u'é')},
        {QString(Sheet::LongestText, u'漢'), QString(Sheet::LongestText, u'漢')},
        {u"Zoë 😀\n two"_s, u"Zoë 😀\n two"_s},
        {std::monostate(), QString()},
        {u"last"_s, u"last"_s},
    };
    Workbook book;
    Sheet& sheet = book.addSheet(u"Term(1)"_s);
    for (int row = 1; const auto& each : cases)
        sheet.put(row++, 2, each.content);
    book.addSheet(u"Term(2)"_s).put(0, 0, u"another"_s);
    for (const QString& name : {u"a.xls"_s, u"a.xlsx"_s}) {
        saveWorkbook(book, path(name));
        const auto read = Spreadsheet::read(path(name));
        ASSERT_TRUE(read) << name.toStdString();
        EXPECT_EQ(read->cell(0, 0), QString());
        for (int row = 1; const auto& each : cases) {
            EXPECT_TRUE(read->cell(row, 2) == each.read)
                << name.toStdString() << ' ' << row << read->cell(row, 2).left(40).toStdString();
            ++row;
        }
    }
}

/// Texts of every length, narrow and wide, over the borders of many records: the library that reads
/// them back here gives up where a text takes more than two records.
TEST_F(SheetWriterTest, TextsOfAllLengthsCrossTheRecords) {
    std::minstd_rand random(17);
    SharedTexts shared;
    QStringList texts;
    for (int number = 0; number < 400; ++number) {
        const int longest = number % 40 == 0 ? Sheet::LongestText - 3 : 300;
        const QChar character = random() % 2 ? u'漢' : u'é';
        texts += QString(static_cast<int>(random() % longest), character) + QString::number(number);
        EXPECT_EQ(shared.numberOf(texts.last()), number);
        EXPECT_EQ(shared.numberOf(texts.first()), 0);
    }
    QByteArray stream;
    shared.addTo(stream);
    SharedTextsReader reader(stream);
    EXPECT_EQ(reader.number(4), 800);
    EXPECT_EQ(reader.number(4), 400);
    for (const QString& text : texts)
        EXPECT_TRUE(reader.text() == text) << text.right(3).toStdString();
    EXPECT_TRUE(reader.atEnd());
}

TEST_F(SheetWriterTest, ATextTooLongIsCutBetweenCharactersAndNamed) {
    const QString face = u"😀"_s;
    struct {
        QString text;
        qsizetype kept;
    } const cases[] = {{QString(32767, u'x'), 32767},
                       {QString(32768, u'x'), 32767},
                       {QString(32766, u'x') + face, 32766},
                       {QString(32765, u'x') + face, 32767}};
    for (const auto& each : cases) {
        Workbook book;
        book.addSheet(u"Notes"_s).put(6, 27, each.text);
        const SheetCell& cell = book.sheets().front().cell(6, 27);
        EXPECT_EQ(std::get<QString>(cell.content).size(), each.kept);
        EXPECT_EQ(book.cutTexts(),
                  each.kept == each.text.size() ? QStringList() : QStringList(u"Notes: AB7"_s));
    }
}

TEST_F(SheetWriterTest, MoreColumnsThanTheFormatHoldsAreRefused) {
    Workbook book;
    Sheet& sheet = book.addSheet(u"Term(1)"_s);
    sheet.put(0, 255, 1.0);
    saveWorkbook(book, path(u"a.xls"_s));
    EXPECT_EQ(readWorkbook(path(u"a.xls"_s))[0].rows[0][255], u"#1"_s);
    sheet.put(0, 256, 1.0);
    EXPECT_EQ(errorOf([&] { saveWorkbook(book, path(u"b.xls"_s)); }), dao::TooManyFields);
    saveWorkbook(book, path(u"c.xlsx"_s));
    EXPECT_EQ(filesLeft(), (QStringList{u"a.xls"_s, u"c.xlsx"_s}));
}

TEST_F(SheetWriterTest, TheNameSaysTheFormatAndTheFileIsPrivate) {
    const QStringList before = temporaryFolders();
    for (const QString& name : {u"a.xls"_s, u"b.XLSX"_s, u"c"_s}) {
        saveWorkbook(bookOf(u"x"_s), path(name));
        const bool isZip = bytesOf(path(name)).startsWith("PK");
        EXPECT_EQ(isZip, name == u"b.XLSX"_s);
        EXPECT_EQ(readWorkbook(path(name)).size(), isZip ? 0 : 1);
        EXPECT_FALSE(QFile::permissions(path(name)) &
                     (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther));
    }
    EXPECT_EQ(temporaryFolders(), before);
}

TEST_F(SheetWriterTest, WhatCannotBeWrittenLeavesTheOldFileAndNothingElse) {
    std::minstd_rand random(5);
    Workbook book;
    for (int number = 0; number < 8; ++number) {
        Sheet& sheet = book.addSheet(u"S%1"_s.arg(number));
        for (int row = 0; row < 100; ++row)
            sheet.put(row, 0, static_cast<double>(random()));
    }
    for (const QString& name : {u"a.xls"_s, u"a.xlsx"_s}) {
        writeFile(path(name), "old");
        {
            constexpr qint64 full = 8000; // bytes
            const FileSizeLimit disk(full);
            EXPECT_NE(errorOf([&] { saveWorkbook(book, path(name)); }), 0) << name.toStdString();
        }
        EXPECT_EQ(bytesOf(path(name)), "old");
        EXPECT_EQ(errorOf([&] { saveWorkbook(book, path(u"none/"_s + name)); }),
                  dao::CannotOpenFile);
        EXPECT_EQ(errorOf([&] { saveWorkbook(book, u"/proc/"_s + name); }), dao::CannotOpenFile);
        QFile::link(path(name), path(u"link."_s + name));
        saveWorkbook(book, path(u"link."_s + name));
        EXPECT_NE(bytesOf(path(name)), "old") << "the file behind the link";
        EXPECT_TRUE(QFile(path(u"link."_s + name)).remove());
    }
    EXPECT_EQ(filesLeft(), (QStringList{u"a.xls"_s, u"a.xlsx"_s}));
}
