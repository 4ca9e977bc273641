// The first sheet of a spreadsheet file, whole and damaged.

#include "office/spreadsheet.h"
#include "support/engine_files.h"
#include "support/engine_places.h"
#include "support/scripted_prompts.h"

#include <random>

namespace {

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

/// Bytes changed where the structures are dense: in the container's header and tables, and in the
/// records of the sheet.
TEST(SpreadsheetTest, AnyBytesEndInASheetOrInNone) {
    const QTemporaryDir folder;
    const QByteArray bytes = bytesOf(workbook(u"class_list.xls"_s));
    const QString path = folder.filePath(u"damaged.xls"_s);
    std::minstd_rand random(20030903);
    constexpr int rounds = 60;
    int refused = 0;
    for (int round = 0; round < rounds; ++round) {
        QByteArray damaged = bytes;
        for (unsigned change = 1 + random() % 40; change > 0; --change) {
            const auto area = change % 4 == 0 ? 512u : static_cast<unsigned>(bytes.size());
            damaged[static_cast<qsizetype>(random() % area)] = static_cast<char>(random());
        }
        const std::optional<Spreadsheet> sheet = Spreadsheet::read(writeFile(path, damaged));
        refused += !sheet;
        EXPECT_TRUE(!sheet || (sheet->rowCount() <= Spreadsheet::LargestRow &&
                               sheet->columnCount() <= Spreadsheet::LargestColumn));
    }
    EXPECT_GT(refused, 0);
    EXPECT_LT(refused, rounds);
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
    for (const QString& none : {u""_s, u"A1"_s, u"Ä"_s, u"None?"_s, QString(400, u'Z')})
        EXPECT_EQ(columnOfLetters(none), -1) << none.toStdString();
}
