// The first sheet of a spreadsheet file, whole and damaged.

#include "office/spreadsheet.h"
#include "support/engine_places.h"
#include "support/scripted_prompts.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
    QFile whole(workbook(u"class_list.xls"_s));
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    const QByteArray bytes = whole.readAll();
    const QString path = folder.filePath(u"damaged.xls"_s);
    EXPECT_FALSE(Spreadsheet::read(path));
    for (const qsizetype length : {0, 7, 511, 512, 700, 1024}) {
        QFile cut(path);
        ASSERT_TRUE(cut.open(QIODevice::WriteOnly));
        cut.write(bytes.left(length));
        cut.close();
        EXPECT_FALSE(Spreadsheet::read(path)) << length;
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
    for (const QString& none : {u""_s, u"A1"_s, u"Ä"_s, u"None?"_s, QString(400, u'Z')})
        EXPECT_EQ(columnOfLetters(none), -1) << none.toStdString();
}
