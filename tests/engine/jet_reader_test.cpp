#include "store/engine/jet_reader.h"

#include "store/engine/jet_content.h"
#include "support/engine_files.h"
#include "support/engine_jet.h"
#include "support/engine_places.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

#include <random>

using namespace dao;

namespace {

QByteArray readData(const QString& name) {
    return bytesOf(test::testData(u"jet/"_s + name));
}

// The samples against the JSON beside them.

QJsonObject fieldAsJson(const Field& field) {
    static const QHash<DataType, QString> types{
        {DataType::Boolean, u"boolean"_s},   {DataType::Byte, u"byte"_s},
        {DataType::Integer, u"integer"_s},   {DataType::Long, u"long"_s},
        {DataType::Currency, u"currency"_s}, {DataType::Single, u"single"_s},
        {DataType::Double, u"double"_s},     {DataType::Date, u"datetime"_s},
        {DataType::Text, u"text"_s},         {DataType::LongBinary, u"ole"_s},
        {DataType::Memo, u"memo"_s},
    };
    QJsonObject json{{u"name"_s, field.Name}, {u"type"_s, types.value(field.Type)}};
    if (field.Type == DataType::Text)
        json[u"size"_s] = field.Size;
    if (field.AllowZeroLength)
        json[u"allow_zero_length"_s] = true;
    if (field.Required)
        json[u"required"_s] = true;
    if (field.isAutoIncrement())
        json[u"auto_increment"_s] = true;
    return json;
}

QJsonArray indexesAsJson(const TableStructure& table) {
    QJsonArray json;
    for (const Index& index : table.indexes)
        json.append(QJsonObject{{u"name"_s, index.Name},
                                {u"field"_s, index.Fields.join(u'+')},
                                {u"primary"_s, index.Primary},
                                {u"unique"_s, index.Unique}});
    return json;
}

QJsonValue valueAsJson(const Value& value, DataType type) {
    if (value.isNull())
        return QJsonValue::Null;
    if (type == DataType::Boolean)
        return value == Value(-1) ? QJsonValue(true)
                                  : (value == Value(0) ? QJsonValue(false) : QJsonValue());
    if (type == DataType::Currency)
        return QString::number(value.toDouble(), 'f', 4);
    if (value.isInteger())
        return value.toInteger();
    if (value.isReal())
        return value.toDouble();
    if (value.isText())
        return value.toText();
    const QByteArray hash =
        QCryptographicHash::hash(value.toBinary(), QCryptographicHash::Sha256).toHex();
    return QJsonObject{{u"sha256"_s, QString::fromLatin1(hash)},
                       {u"length"_s, value.toBinary().size()}};
}

/// Numbers come in the kind of their field, so that the JSON's numbers alone would not tell.
bool hasKindOf(const Value& value, DataType type) {
    switch (type) {
    case DataType::Currency:
    case DataType::Single:
    case DataType::Double:
        return value.isReal();
    case DataType::Date:
    case DataType::Text:
    case DataType::Memo:
        return value.isText();
    case DataType::LongBinary:
        return value.isBinary();
    default:
        return value.isInteger();
    }
}

class JetSample : public testing::TestWithParam<const char*> {};

TEST_P(JetSample, IsReadCompletely) {
    const QString name = QString::fromLatin1(GetParam());
    const QByteArray file = readData(name + u".mdb"_s);
    const QJsonObject expected = QJsonDocument::fromJson(readData(name + u".json"_s)).object();
    const JetContent content = readJetFile(file);
    EXPECT_EQ(jetPassword(file), QString());
    ASSERT_EQ(content.tables.size(), expected[u"table_count"_s].toInt());

    QJsonArray relations;
    for (const JetTable& table : content.tables) {
        const TableStructure& structure = table.structure;
        SCOPED_TRACE(qPrintable(structure.name));
        const QJsonObject json = expected[u"tables"_s].toObject()[structure.name].toObject();
        QJsonArray fields;
        for (const Field& field : structure.fields)
            fields.append(fieldAsJson(field));
        EXPECT_EQ(fields, json[u"columns"_s].toArray());
        EXPECT_EQ(indexesAsJson(structure), json[u"indexes"_s].toArray());
        for (const Relation& relation : structure.relations)
            relations.append(QJsonObject{{u"name"_s, relation.Name},
                                         {u"table"_s, relation.Table},
                                         {u"field"_s, relation.Fields.value(0).Name},
                                         {u"foreign_table"_s, relation.ForeignTable},
                                         {u"foreign_field"_s, relation.Fields.value(0).ForeignName},
                                         {u"attributes"_s, relation.Attributes}});

        const QJsonArray rows = json[u"rows"_s].toArray();
        ASSERT_EQ(table.rows.size(), rows.size());
        for (qsizetype row = 0; row < rows.size(); ++row) {
            const QJsonArray values = rows[row].toArray();
            ASSERT_EQ(table.rows[row].size(), values.size());
            for (qsizetype i = 0; i < values.size(); ++i) {
                const Value& value = table.rows[row][i];
                EXPECT_EQ(valueAsJson(value, structure.fields[i].Type), values[i])
                    << "row " << row << ", " << qPrintable(structure.fields[i].Name);
                EXPECT_TRUE(value.isNull() || hasKindOf(value, structure.fields[i].Type));
            }
        }
    }
    EXPECT_EQ(relations.size(), expected[u"relations"_s].toArray().size());
    for (const QJsonValue& relation : expected[u"relations"_s].toArray())
        EXPECT_TRUE(relations.contains(relation)) << qPrintable(relation[u"name"].toString());
}

INSTANTIATE_TEST_SUITE_P(All, JetSample,
                         testing::Values("year_single_jet4", "year_ab_jet4", "not_a_year"));

TEST(JetReader, ReadsTablesInTheOrderOfTheCatalogue) {
    QStringList names;
    for (const JetTable& table : readJetFile(readData(u"not_a_year.mdb"_s)).tables)
        names.append(table.structure.name);
    EXPECT_EQ(names, (QStringList{u"Artists"_s, u"Albums"_s, u"Shelf Places"_s}));
}

TEST(JetReader, TellsHeaders) {
    const QByteArray file = readData(u"not_a_year.mdb"_s);
    EXPECT_TRUE(isJetHeader(file));
    EXPECT_TRUE(isJetHeader(file.first(0x15)));
    EXPECT_FALSE(isJetHeader(file.first(0x14)));
    EXPECT_FALSE(isJetHeader("SQLite format 3"));
    EXPECT_FALSE(isJetHeader({}));
    QByteArray later = file; // of the format behind the two that are read
    later[0x14] = 2;
    EXPECT_FALSE(isJetHeader(later));
    EXPECT_EQ(errorOf([&] { jetPassword(file.first(4095)); }), DamagedDatabase);
}

// Passwords.

TEST(JetReader, ReadsThePassword) {
    const QByteArray file = readData(u"not_a_year.mdb"_s);
    for (const QString& password :
         {u"a"_s, u"Gru\u00DF\u20AC \u017Di\u017Eka"_s, u"12345678901234567890"_s, QString()}) {
        const QByteArray utf16(reinterpret_cast<const char*>(password.utf16()),
                               password.size() * 2);
        EXPECT_EQ(jetPassword(withPassword(file, utf16, true)), password);
        EXPECT_EQ(jetPassword(withPassword(file, utf16, true, -2.5)), password);
    }
    EXPECT_EQ(jetPassword(withPassword(file, "na\xEFve \x80", false)), u"na\u00EFve \u20AC"_s);
    EXPECT_EQ(jetPassword(withPassword(file, {}, false)), QString());
    // The password changes nothing in how the rest reads.
    EXPECT_EQ(readJetFile(withPassword(file, "x\0y\0", true)).tables.size(), 3);
}

// Damage.

constexpr qsizetype Page = 4096;

void put32(QByteArray& file, qsizetype at, quint32 number) {
    qToLittleEndian(number, file.data() + at);
}

quint32 get32(const QByteArray& file, qsizetype at) {
    return qFromLittleEndian<quint32>(file.constData() + at);
}

quint16 get16(const QByteArray& file, qsizetype at) {
    return qFromLittleEndian<quint16>(file.constData() + at);
}

/// Page 24 defines Artists, page 27 Albums.
constexpr qsizetype Artists = 24 * Page;
constexpr qsizetype Albums = 27 * Page;

/// Where the first data page of a table starts.
qsizetype dataPage(const QByteArray& file, qsizetype definition) {
    for (qsizetype at = 0; at < file.size(); at += Page) {
        if (file[at] == 1 && get32(file, at + 4) == definition / Page && get16(file, at + 12) > 0)
            return at;
    }
    ADD_FAILURE() << "no data page";
    return 0;
}

TEST(JetReader, RefusesDamage) {
    struct Case {
        const char* name;
        std::function<void(QByteArray&)> damage;
    };
    const std::vector<Case> cases{
        {"no page", [](QByteArray& f) { f.resize(20); }},
        {"half a page more", [](QByteArray& f) { f.append(2048, '\0'); }},
        {"a byte less", [](QByteArray& f) { f.chop(1); }},
        {"half the pages", [](QByteArray& f) { f.resize(33 * Page); }},
        {"header alone", [](QByteArray& f) { f.resize(Page); }},
        {"no catalogue", [](QByteArray& f) { f[2 * Page] = 1; }},
        {"zeros behind the header",
         [](QByteArray& f) {
             f.replace(Page, f.size() - Page, QByteArray(f.size() - Page, '\0'));
         }},
        {"one row too many promised", [](QByteArray& f) { put32(f, Artists + 16, 6); }},
        {"one row too few promised", [](QByteArray& f) { put32(f, Artists + 16, 4); }},
        {"more columns than there are", [](QByteArray& f) { f[Artists + 45] = 4; }},
        {"no columns", [](QByteArray& f) { f[Artists + 45] = 0; }},
        {"countless indexes", [](QByteArray& f) { put32(f, Artists + 47, 0x7FFFFFFF); }},
        {"countless real indexes", [](QByteArray& f) { put32(f, Artists + 51, 0xFFFFFFF0); }},
        {"a definition that leads back to itself",
         [](QByteArray& f) { put32(f, Artists + 4, 24); }},
        {"a definition that goes on behind the end",
         [](QByteArray& f) { put32(f, Artists + 4, 9999); }},
        {"a usage map behind the end", [](QByteArray& f) { put32(f, Artists + 55, 9999 << 8); }},
        {"a data page gone", [](QByteArray& f) { f[dataPage(f, Artists)] = 9; }},
        {"a data page of another table",
         [](QByteArray& f) { put32(f, dataPage(f, Artists) + 4, 27); }},
        {"a row over the page's end",
         [](QByteArray& f) { put32(f, dataPage(f, Artists) + 14, 0x1FFF1FFF); }},
        {"a row moved behind the end",
         [](QByteArray& f) {
             const qsizetype page = dataPage(f, Artists);
             f[page + 15] = static_cast<char>(f[page + 15] | 0x40);
             put32(f, page + (get16(f, page + 14) & 0x1FFF), 9999 << 8);
         }},
        {"a row moved to where it is",
         [](QByteArray& f) {
             const qsizetype page = dataPage(f, Artists);
             f[page + 15] = static_cast<char>(f[page + 15] | 0x40);
             put32(f, page + (get16(f, page + 14) & 0x1FFF),
                   static_cast<quint32>(page / Page) << 8);
         }},
        {"a row of a thousand fields",
         [](QByteArray& f) {
             const qsizetype page = dataPage(f, Albums);
             f[page + (get16(f, page + 14) & 0x1FFF) + 1] = 0x7F;
         }},
        {"a memo that never ends",
         [](QByteArray& f) {
             for (qsizetype at = 0; at < f.size(); at += Page) {
                 if (f.mid(at + 4, 4) != "LVAL")
                     continue;
                 for (int slot = 0; slot < get16(f, at + 12); ++slot)
                     put32(f, at + (get16(f, at + 14 + slot * 2) & 0x1FFF),
                           static_cast<quint32>(at / Page) << 8 | static_cast<quint32>(slot));
             }
         }},
        {"the pages of memos gone",
         [](QByteArray& f) {
             for (qsizetype at = 0; at < f.size(); at += Page) {
                 if (f.mid(at + 4, 4) == "LVAL")
                     f[at] = 0;
             }
         }},
    };
    const QByteArray whole = readData(u"not_a_year.mdb"_s);
    for (const Case& c : cases) {
        QByteArray file = whole;
        c.damage(file);
        EXPECT_EQ(errorOf([&] { readJetFile(file); }), DamagedDatabase) << c.name;
    }
}

/// A whole file with a few changes where the structures are dense: at a page's start, with its
/// counts and offsets, and in its rows; now and then a number of an unlikely size, or an early end.
QByteArray mutated(QByteArray file, std::minstd_rand& random) {
    const auto below = [&](qsizetype bound) {
        return static_cast<qsizetype>(random() % static_cast<unsigned>(bound));
    };
    if (below(10) == 0)
        file.truncate((1 + below(file.size() / Page - 1)) * Page);
    for (qsizetype change = 1 + below(40); change > 0; --change) {
        const qsizetype page = below(file.size() / Page) * Page;
        const qsizetype at = page + (change % 2 ? below(256) : below(Page - 4));
        if (change % 5 == 0)
            put32(file, at, static_cast<quint32>(random() % 3) - 1);
        else
            file[at] = static_cast<char>(random());
    }
    return file;
}

/// How many of the rounds end in 3343; anything but that and content is a failure.
int damagedOf(int rounds, JetContent (*read)(const QByteArray&)) {
    const QByteArray whole = readData(u"not_a_year.mdb"_s);
    std::minstd_rand random(20030903);
    int damaged = 0;
    for (int round = 0; round < rounds; ++round) {
        const QByteArray file = mutated(whole, random);
        const int error = errorOf([&] { read(file); });
        EXPECT_TRUE(error == 0 || error == DamagedDatabase) << "round " << round;
        damaged += error != 0;
    }
    return damaged;
}

TEST(JetReader, SurvivesAnyBytes) {
    EXPECT_GT(damagedOf(60, readJetFile), 0);
}

/// Without the child process, which only stands in for what these checks may have missed, and
/// whose start takes more time than the reading.
TEST(JetReader, ChecksWhatItFollows) {
    constexpr int rounds = 3000;
    testing::internal::CaptureStderr(); // libmdb tells of much that it finds
    const int damaged = damagedOf(rounds, readJetContent);
    testing::internal::GetCapturedStderr();
    EXPECT_GT(damaged, rounds / 4);
    EXPECT_LT(damaged, rounds);
}

} // namespace
