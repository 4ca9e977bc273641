// The older format, of which a file is put together here: pages of 2 KiB, text in code page 1252,
// rows whose offsets take one byte each.

#include "store/engine/jet_bytes.h"
#include "store/engine/jet_reader.h"
#include "support/engine_jet.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

using namespace dao;

namespace {

constexpr qsizetype Page = 2048;

template<typename Number>
QByteArray bytes(Number number) {
    QByteArray result(sizeof number, '\0');
    qToLittleEndian(number, result.data());
    return result;
}

struct Column {
    QByteArray name;
    DataType type;
    quint16 size;
    bool fixed;
    bool autoIncrement = false;
};

QByteArray definition(const QList<Column>& columns, quint32 rows, quint32 mapPointer) {
    QByteArray attributes;
    QByteArray names;
    quint16 number = 0;
    quint16 variables = 0;
    quint16 fixedOffset = 0;
    for (const Column& column : columns) {
        const bool isBoolean = column.type == DataType::Boolean;
        attributes += static_cast<char>(column.type);
        attributes += bytes(number) + bytes(variables) + bytes(number) + QByteArray(6, '\0');
        attributes += static_cast<char>((column.fixed ? 1 : 0) | (column.autoIncrement ? 4 : 0));
        attributes += bytes(fixedOffset) + bytes(column.size);
        names += static_cast<char>(column.name.size()) + column.name;
        if (!column.fixed)
            ++variables;
        else if (!isBoolean)
            fixedOffset = static_cast<quint16>(fixedOffset + column.size);
        ++number;
    }
    const QByteArray counts = bytes(rows) + bytes(quint32(0)) + 'N' + bytes(number) +
                              bytes(variables) + bytes(number) + bytes(quint32(0)) +
                              bytes(quint32(0)) + bytes(mapPointer) + bytes(mapPointer);
    const QByteArray body = counts + attributes + names + bytes(quint16(0xFFFF));
    return QByteArray("\x02\x01VC\0\0\0\0", 8) + bytes(static_cast<quint32>(body.size() + 12)) +
           body;
}

/// `isNull` has a bit a column that is set where it is none; of a truth value the bit is all.
QByteArray row(int columns, const QByteArray& fixed, const QByteArrayList& variable,
               quint32 notNull) {
    QByteArray result = static_cast<char>(columns) + fixed;
    QList<qsizetype> offsets;
    for (const QByteArray& value : variable) {
        offsets.append(result.size());
        result += value;
    }
    offsets.append(result.size());
    QByteArray jumps;
    for (qsizetype i = 1; i < offsets.size(); ++i) {
        for (qsizetype over = offsets[i - 1] / 256; over < offsets[i] / 256; ++over)
            jumps.prepend(static_cast<char>(i));
    }
    for (qsizetype i = offsets.size() - 1; i >= 0; --i)
        result += static_cast<char>(offsets[i] % 256);
    return result + jumps + static_cast<char>(variable.size()) +
           bytes(notNull).first((columns + 7) / 8);
}

QByteArray dataPage(quint32 owner, const QByteArrayList& rows) {
    QByteArray head =
        QByteArray("\x01\x01\0\0", 4) + bytes(owner) + bytes(static_cast<quint16>(rows.size()));
    QByteArray content;
    for (const QByteArray& row : rows) {
        content.prepend(row);
        head += bytes(static_cast<quint16>(Page - content.size()));
    }
    return head + QByteArray(Page - head.size() - content.size(), '\0') + content;
}

QByteArray usageMap(int page) {
    QByteArray map(128, '\0');
    map[page / 8] = static_cast<char>(1 << (page % 8));
    return QByteArray(5, '\0') + map;
}

QByteArray inlineMemo(const QByteArray& text) {
    return bytes(static_cast<quint32>(text.size()) | 0x80000000) + QByteArray(8, '\0') + text;
}

QByteArray jet3File() {
    const QList<Column> catalogue{{"Id", DataType::Long, 4, true},
                                  {"Name", DataType::Text, 255, false},
                                  {"Type", DataType::Integer, 2, true},
                                  {"Flags", DataType::Long, 4, true},
                                  {"LvProp", DataType::LongBinary, 0, false}};
    const QList<Column> pupils{
        {"ID", DataType::Long, 4, true, true},   {"Pr\xE9nom", DataType::Text, 255, false},
        {"Present", DataType::Boolean, 1, true}, {"Note", DataType::Memo, 0, false},
        {"Mark", DataType::Double, 8, true},     {"Last", DataType::Text, 200, false}};
    const QByteArray properties = QByteArray("KKD\0", 4) + bytes(quint32(6 + 2 + 15)) +
                                  bytes(quint16(0x80)) + bytes(quint16(15)) + "AllowZeroLength" +
                                  bytes(quint32(6 + 6 + 6 + 9)) + bytes(quint16(1)) +
                                  bytes(quint32(12)) + bytes(quint16(6)) + "Pr\xE9nom" +
                                  bytes(quint16(9)) + QByteArray("\0\x01\0\0\x01\0\xFF", 7);
    const auto pupil = [&](qint32 id, const QByteArrayList& texts, double mark, quint32 notNull) {
        return row(6, bytes(id) + bytes(mark), texts, notNull);
    };
    QByteArrayList pages{
        QByteArray("\0\x01\0\0Standard Jet DB\0\0", 21),
        dataPage(0, {usageMap(3), usageMap(5)}),
        definition(catalogue, 1, 1 << 8 | 0),
        dataPage(2, {row(5, bytes(qint32(4)) + bytes(qint16(1)) + bytes(qint32(0)),
                         {"Pupils", inlineMemo(properties)}, 0b11111)}),
        definition(pupils, 4, 1 << 8 | 1),
        dataPage(4, {pupil(4, {"Zo\xEB \x80", inlineMemo("M\xE9mo"), "x"}, 12.5, 0b111111),
                     pupil(1, {"", inlineMemo(""), ""}, 0, 0b001011),
                     pupil(2,
                           {QByteArray(250, 'a'), inlineMemo(QByteArray(300, 'b')),
                            QByteArray(200, 'c')},
                           0.1, 0b111111),
                     pupil(3, {"", "", QByteArray(150, 'd')}, 0, 0b100001)}),
    };
    QByteArray file;
    for (const QByteArray& page : pages)
        file += page.leftJustified(Page, '\0');
    for (qsizetype at = 0x18; at < 0x18 + 126; ++at)
        putIntoHeader(file, at, 0); // neither a key nor a password
    const QByteArray codePage = bytes(quint16(1252));
    putIntoHeader(file, 0x3C, codePage[0]);
    putIntoHeader(file, 0x3D, codePage[1]);
    return file;
}

TEST(Jet3, IsReadCompletely) {
    const JetContent content = readJetFile(jet3File());
    ASSERT_EQ(content.tables.size(), 1);
    const TableStructure& structure = content.tables[0].structure;
    EXPECT_EQ(structure.name, u"Pupils"_s);
    ASSERT_EQ(structure.fields.size(), 6);
    EXPECT_TRUE(structure.fields[0].isAutoIncrement());
    EXPECT_EQ(structure.fields[1].Name, u"Pr\u00E9nom"_s);
    EXPECT_EQ(structure.fields[1].Size, 255);
    EXPECT_TRUE(structure.fields[1].AllowZeroLength);
    EXPECT_FALSE(structure.fields[5].AllowZeroLength);

    const QString empty = QLatin1String("");
    const auto run = [](int count, char16_t letter) { return Value(QString(count, letter)); };
    const QList<QList<Value>> expected{
        // In the order of the numbers, which is not the one in which they lie there.
        {1, empty, 0, empty, Value(), Value()},
        {2, run(250, u'a'), -1, run(300, u'b'), 0.1, run(200, u'c')},
        {3, Value(), 0, Value(), Value(), run(150, u'd')},
        {4, u"Zo\u00EB \u20AC"_s, -1, u"M\u00E9mo"_s, 12.5, u"x"_s},
    };
    EXPECT_EQ(content.tables[0].rows, expected);
}

TEST(JetBytes, ReadsDates) {
    const QList<std::pair<double, const char*>> cases{
        {0, "1899-12-30 00:00:00"},
        {38353.75, "2005-01-01 18:00:00"},
        {-1.25, "1899-12-29 06:00:00"},
        {36526.999994, "2000-01-01 23:59:59"},
        {36526.999999, "2000-01-02 00:00:00"},
        {2958465, "9999-12-31 00:00:00"},
        {-657434, "0100-01-01 00:00:00"},
    };
    for (const auto& [days, text] : cases)
        EXPECT_EQ(jetDate(days), QLatin1String(text));
    for (const double days :
         {-657435.0, 2958466.0, 1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_ANY_THROW(jetDate(days)) << days;
}

TEST(JetBytes, ReadsTexts) {
    const auto text = [](const QByteArray& stored) {
        return jetText(JetBytes(stored), JetFormat::Jet4);
    };
    EXPECT_EQ(text({}), QString());
    EXPECT_EQ(text("\xFF\xFE"
                   "caf\xE9"),
              u"caf\u00E9"_s);
    // A zero byte goes over to two bytes a character, and back.
    EXPECT_EQ(text(QByteArray("\xFF\xFE"
                              "a\0\xAC\x20\0b",
                              8)),
              u"a\u20ACb"_s);
    EXPECT_EQ(text(QByteArray("\x3D\xD8\x00\xDE", 4)), u"\U0001F600"_s);
    EXPECT_ANY_THROW(text(QByteArray("\xFF\xFE"
                                     "a\0\xAC",
                                     5)));
    EXPECT_EQ(jetGuid(JetBytes(QByteArray::fromHex("33221100554477668899aabbccddeeff"))),
              u"{00112233-4455-6677-8899-AABBCCDDEEFF}"_s);
}

} // namespace
