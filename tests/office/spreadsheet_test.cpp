// The first sheet of a spreadsheet file, whole and damaged.

#include "office/number_format.h"
#include "office/sheet_cells.h"
#include "office/spreadsheet.h"
#include "support/engine_files.h"
#include "support/engine_places.h"
#include "support/scripted_prompts.h"

#include <random>

namespace {

QString shortDate(const QDate& date) {
    return QLocale().toString(date, QLocale::ShortFormat);
}

QString shortTime(const QTime& time) {
    return QLocale().toString(time, QLocale::ShortFormat);
}

QString workbook(const QString& name) {
    return test::testData(u"spreadsheets/"_s + name);
}

} // namespace

TEST(SpreadsheetTest, CellsReadAsInTheSheet) {
    const std::optional<Spreadsheet> sheet = Spreadsheet::read(workbook(u"class_list.xls"_s));
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->rowCount(), 7);
    EXPECT_EQ(sheet->columnCount(), 5);
    EXPECT_EQ(sheet->cell(2, 0), u"ABBOTT"_s);
    EXPECT_EQ(sheet->cell(3, 1), u"Zoë"_s);
    EXPECT_EQ(sheet->cell(2, 3), u"17"_s);
    EXPECT_EQ(sheet->cell(2, 4), u"23.5"_s);
    EXPECT_EQ(sheet->cell(4, 4), QString()); // empty, like those beyond the end
    EXPECT_EQ(sheet->cell(70, 50), QString());
    const std::optional<Spreadsheet> empty = Spreadsheet::read(workbook(u"empty.xls"_s));
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->rowCount(), 0);
}

TEST(SpreadsheetTest, WhatIsNoneIsRefused) {
    const QTemporaryDir folder;
    const QByteArray bytes = bytesOf(workbook(u"class_list.xls"_s));
    const QString path = folder.filePath(u"damaged.xls"_s);
    EXPECT_FALSE(Spreadsheet::read(path));
    for (const qsizetype length : {0, 7, 511, 512, 700, 1024}) {
        EXPECT_FALSE(Spreadsheet::read(writeFile(path, bytes.left(length)))) << length;
    }
}

/// Behind a hidden sheet an empty first row, a merged cell, formulas, dates and repeated rows, as
/// an office program writes them in each format.
TEST(SpreadsheetTest, AllFormatsReadAlike) {
    const QString date = shortDate({2026, 11, 27});
    for (const QString& ending : {u"xls"_s, u"xlsx"_s, u"ods"_s}) {
        SCOPED_TRACE(ending.toStdString());
        const auto sheet = Spreadsheet::read(workbook(u"kinds."_s + ending));
        ASSERT_TRUE(sheet);
        QStringList rows;
        for (int row = 0; row < sheet->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < sheet->columnCount(); ++column)
                cells += sheet->cell(row, column);
            rows += cells.join(u'|');
        }
        // LibreOffice leaves it to the reader to reckon a formula's text in .xls.
        const QString text = ending == u"xls" ? u"0"_s : u"O'BRIEN!"_s;
        const QString cole = u"Cole|Ed|Ed|10|two\nlines|rich te  xt||0.1|1234567||"_s;
        EXPECT_EQ(rows,
                  (QStringList{u"||||||||||"_s,
                               u"Names||Test & 1|Double|Text|Set on|Handed in|At|Share|Done|Due"_s,
                               u"O'BRIEN|Zoë|7.5|15|%1|%2|%2 %3|%3|0.85|True|%4"_s.arg(
                                   text, date, shortTime({8, 30}), shortDate({2026, 11, 28})),
                               cole, cole}));
    }
}

TEST(SpreadsheetTest, AFormulasResultIsWhatTheCellReads) {
    const auto sheet = Spreadsheet::read(workbook(u"formulas.xls"_s));
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->columnCount(), 4); // an error and nothing are no results
    EXPECT_EQ(sheet->cell(0, 0), u"7.5"_s);
    EXPECT_EQ(sheet->cell(0, 1), shortDate({2026, 11, 27}));
    EXPECT_EQ(sheet->cell(0, 2), u"Zoë"_s);
    EXPECT_EQ(sheet->cell(0, 3), u"True"_s);
}

TEST(SpreadsheetTest, TextsMayStandInTheCellsThemselves) {
    const auto sheet = Spreadsheet::read(workbook(u"own_texts.xlsx"_s));
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->cell(1, 1), u"Zoë"_s);
    EXPECT_EQ(sheet->cell(1, 2), u"O'Brien "_s);
    EXPECT_EQ(sheet->cell(1, 3), u"a\rb"_s);
    EXPECT_EQ(sheet->cell(1, 4), shortDate({2026, 11, 27}) + u' ' + shortTime({8, 30}));
    EXPECT_EQ(sheet->cell(2, 0), shortDate({2026, 11, 27})); // counted from 1904
    EXPECT_EQ(sheet->cell(2, 1), u"7.5"_s);
    EXPECT_EQ(sheet->cell(2, 2), shortTime({12, 0}));
    EXPECT_EQ(sheet->cell(2, 3), QString()); // an error
    const auto wide = Spreadsheet::read(workbook(u"wide.xlsx"_s));
    ASSERT_TRUE(wide);
    EXPECT_EQ(wide->columnCount(), 300);
    EXPECT_EQ(wide->cell(2, 299), u"2299"_s);
}

/// Sheets of the first version, and of BIFF5 without a container.
TEST(SpreadsheetTest, OldSheetsStandAlone) {
    for (const QString& name : {u"older.xls"_s, u"bare.xls"_s}) {
        const auto sheet = Spreadsheet::read(workbook(name));
        ASSERT_TRUE(sheet) << name.toStdString();
        EXPECT_EQ(sheet->cell(0, 1), u"First name"_s);
        QStringList row;
        for (int column = 0; column < 5; ++column)
            row += sheet->cell(1, column);
        EXPECT_EQ(row,
                  (QStringList{u"O'Brien"_s, u"Zoë"_s, u"7.5"_s, u"-3"_s, u"0.000244140625"_s}));
    }
}

TEST(SpreadsheetTest, WhatHindersIsSaid) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.xls"_s);
    const QString web = writeFile(path, "\r\n<html><table><tr><td>Cole</td></tr></table></html>");
    const QString empty = writeFile(folder.filePath(u"a.csv"_s), "");
    struct {
        QString file;
        QString word;
    } const cases[] = {
        {workbook(u"encrypted.xls"_s), u"password"_s},
        {workbook(u"encrypted.xlsx"_s), u"password"_s},
        {workbook(u"encrypted.ods"_s), u"password"_s},
        {web, u"web page"_s},
        {empty, u"empty"_s},
    };
    for (const auto& each : cases) {
        EXPECT_FALSE(Spreadsheet::read(each.file)) << each.file.toStdString();
        EXPECT_TRUE(Spreadsheet::hindrance(each.file).contains(each.word))
            << each.file.toStdString();
    }
    EXPECT_EQ(Spreadsheet::hindrance(folder.filePath(u"none.xls"_s)), QString());
    EXPECT_EQ(Spreadsheet::hindrance(writeFile(path, "\1\2")), QString());
}

TEST(SpreadsheetTest, TablesInTextsHaveTheirSeparator) {
    const QTemporaryDir folder;
    struct {
        QByteArray text;
        QStringList first; ///< row
    } const cases[] = {
        {"Cole,Ed,7.5\n", {u"Cole"_s, u"Ed"_s, u"7.5"_s}},
        {"\xEF\xBB\xBF"
         "Cole;Zo\xC3\xAB;7,5\r\n",
         {u"Cole"_s, u"Zoë"_s, u"7,5"_s}},
        {"Cole\tZo\xEB\t7,5;\n", {u"Cole"_s, u"Zoë"_s, u"7,5;"_s}}, // Windows-1252
        {"\"Cole, the \"\"first\"\"\",\"two\nlines\"\n",
         {u"Cole, the \"first\""_s, u"two\nlines"_s}},
        {"One\nTwo", {u"One"_s}},
        {"Cole;Ed\rDale;Di\r", {u"Cole"_s, u"Ed"_s}},
        {QByteArray("\xFF\xFE"
                    "C\0o\0\t\0E\0d\0\r\0\n\0",
                    16),
         {u"Co"_s, u"Ed"_s}},
    };
    for (const auto& each : cases) {
        // School systems give them the ending of workbooks too.
        const auto sheet = Spreadsheet::read(writeFile(folder.filePath(u"a.xls"_s), each.text));
        ASSERT_TRUE(sheet) << each.text.constData();
        QStringList first;
        for (int column = 0; column < sheet->columnCount(); ++column)
            first += sheet->cell(0, column);
        EXPECT_EQ(first, each.first);
    }
    EXPECT_FALSE(
        Spreadsheet::read(writeFile(folder.filePath(u"a.txt"_s), QByteArray("Cole\tEd\0\1", 9))));
    const QByteArray line = "Cole,Ed,10\n";
    const auto longest = Spreadsheet::read(
        writeFile(folder.filePath(u"a.csv"_s), line.repeated(SheetCells::LargestRow + 1)));
    ASSERT_TRUE(longest);
    EXPECT_EQ(longest->rowCount(), 65536);
    EXPECT_EQ(longest->cell(65535, 2), u"10"_s);
}

TEST(SpreadsheetTest, AFormatSaysWhatANumberIs) {
    using enum CellKind;
    struct {
        int id;
        QString code;
        std::optional<CellKind> kind;
    } const cases[] = {
        {0, {}, std::nullopt},
        {14, {}, Date},
        {22, {}, DateTime},
        {46, {}, Time},
        {164, u"General"_s, std::nullopt},
        {164, u"0.00_);[Red]\\(0.00\\)"_s, std::nullopt},
        {164, u"\"d\"0"_s, std::nullopt},
        {164, u"[$-409]d\\-mmm\\-yy;@"_s, Date},
        {164, u"mmmm"_s, Date},
        {164, u"yyyy-mm-dd hh:mm"_s, DateTime},
        {164, u"mm:ss.0"_s, Time},
        {164, u"[h]:mm"_s, Time},
    };
    for (const auto& each : cases)
        EXPECT_EQ(momentOfFormat(each.id, each.code), each.kind) << each.code.toStdString();
}

TEST(SpreadsheetTest, ATimeIsOfItsDayUnlessItCountsOn) {
    NumberFormats formats;
    formats.codes = {{164, u"h:mm"_s}, {165, u"[h]:mm"_s}};
    formats.cells = {20, 164, 46, 165};
    struct {
        qsizetype style;
        double number;
        ReadCell read;
    } const cases[] = {
        {0, 46353.5, {CellKind::Time, u"12:00:00"_s}},
        {1, 46353.5, {CellKind::Time, u"12:00:00"_s}},
        {2, 1.25, {CellKind::Text, u"1.25"_s}},
        {3, 1.25, {CellKind::Text, u"1.25"_s}},
        {3, 0.25, {CellKind::Time, u"06:00:00"_s}},
    };
    for (const auto& each : cases) {
        SheetCells cells;
        formats.put(cells, 0, 0, each.number, each.style);
        const ReadCell read = SheetCells::unpacked(cells.packed())->at(0).at(0);
        EXPECT_EQ(read.kind, each.read.kind) << each.style;
        EXPECT_EQ(read.text, each.read.text) << each.style;
    }
}

/// Bytes changed where the structures are dense: in the container's header and tables, and in the
/// records of the sheet.
TEST(SpreadsheetTest, AnyBytesEndInASheetOrInNone) {
    const QTemporaryDir folder;
    std::minstd_rand random(20030903);
    for (const QString& name : {u"class_list.xls"_s, u"formulas.xls"_s, u"kinds.xls"_s,
                                u"kinds.xlsx"_s, u"kinds.ods"_s}) {
        const QByteArray bytes = bytesOf(workbook(name));
        const QString path = folder.filePath(name);
        constexpr int rounds = 30;
        int refused = 0;
        for (int round = 0; round < rounds; ++round) {
            QByteArray damaged = bytes;
            for (unsigned change = 1 + random() % 40; change > 0; --change) {
                const auto area = change % 4 == 0 ? 512u : static_cast<unsigned>(bytes.size());
                damaged[static_cast<qsizetype>(random() % area)] = static_cast<char>(random());
            }
            refused += !Spreadsheet::read(writeFile(path, damaged));
        }
        EXPECT_GT(refused, 0) << name.toStdString();
        EXPECT_LE(refused, rounds);
    }
}

TEST(SpreadsheetTest, ColumnsHaveLetters) {
    struct {
        int column;
        QString letters;
    } const cases[] = {{0, u"A"_s},   {25, u"Z"_s},  {26, u"AA"_s},
                       {51, u"AZ"_s}, {52, u"BA"_s}, {255, u"IV"_s}};
    for (const auto& each : cases) {
        EXPECT_EQ(columnLetters(each.column), each.letters);
        EXPECT_EQ(columnOfLetters(each.letters.toLower()), each.column);
    }
    for (const QString& none : {u""_s, u"XFE"_s, u"A1"_s, u"Ä"_s, u"None?"_s, QString(400, u'Z')})
        EXPECT_EQ(columnOfLetters(none), -1) << none.toStdString();
}
