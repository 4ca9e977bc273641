#include "store/schema.h"

#include "classes/register_columns.h"
#include "store/schema_markdown.h"
#include "store/table_names.h"
#include "support/engine_files.h"
#include "support/engine_places.h"

namespace {

/// A field as `name:type:size`, with Z where it takes an empty text and R where it is required.
QString written(const dao::Field& field) {
    QString text = u"%1:%2"_s.arg(field.Name).arg(static_cast<int>(field.Type));
    if (field.Type == dao::DataType::Text)
        text += u":%1"_s.arg(field.Size);
    if (field.AllowZeroLength)
        text += u'Z';
    if (field.Required)
        text += u'R';
    if (field.isAutoIncrement())
        text += u'+';
    return text;
}

QString written(const QList<dao::Field>& fields) {
    QStringList texts;
    for (const dao::Field& field : fields)
        texts.append(written(field));
    return texts.join(u' ');
}

TEST(Schema, EveryTableCanBeMadeAndReadBack) {
    const QTemporaryDir folder;
    dao::Database database = dao::DBEngine().CreateDatabase(folder.filePath(u"all.mdb"_s),
                                                            dao::GeneralLocale.toString());
    const YearShape shape{9, true};
    for (const TableSpec& spec : schemaTables()) {
        if (spec.made == Made::InAddressBook)
            continue;
        const QString code = spec.made == Made::PerClass ? u"7[_^]Ä"_s : QString();
        database.TableDefs().Append(schemaTableDef(spec.table, shape, code));
        const dao::TableDef made = database.TableDefs()[spec.name + code];
        QList<dao::Field> fields(made.Fields().begin(), made.Fields().end());
        EXPECT_EQ(written(fields).toStdString(),
                  written(schemaFields(spec.table, shape)).toStdString());
        const bool keyed = std::any_of(spec.fields.begin(), spec.fields.end(),
                                       [](const FieldSpec& field) { return field.flags & Key; });
        const QList<dao::Index> indexes = made.Indexes();
        ASSERT_EQ(std::any_of(indexes.begin(), indexes.end(),
                              [](const dao::Index& index) {
                                  return index.Name == IdIndex && index.Primary && index.Unique &&
                                         index.Fields == QStringList{u"ID"_s};
                              }),
                  keyed)
            << spec.name.toStdString();
    }
    EXPECT_EQ(database.OpenRecordset(u"SELECT * FROM [Post-It] WHERE IDX = 1"_s).RecordCount(), 0);
}

TEST(Schema, PageIsUpToDate) {
    const QString text = QString::fromUtf8(bytesOf(test::docsPage(u"file-format.md"_s)));
    const qsizetype begin = text.indexOf(SchemaSectionBegin) + SchemaSectionBegin.size();
    const qsizetype end = text.indexOf(SchemaSectionEnd);
    EXPECT_EQ(text.mid(begin, end - begin).trimmed(), schemaMarkdown().trimmed())
        << "run build/tools/schema_doc docs/file-format.md";
}

TEST(TableNames, TakenApart) {
    static constexpr const char* none = "-";
    const struct {
        const char* table;
        const char* ofClass;
        const char* ofRegister;
        const char* room; ///< as a plan of class 7A
    } cases[] = {
        {"Class_7A", "7A", none, none},       {"class_7A", "7A", none, none},
        {"Class_Temp", none, none, none},     {"CLASS_TEMP", none, none, none},
        {"Class_TEMPS", "TEMPS", none, none}, {"Class_", none, none, none},
        {"Classcodes", none, none, none},     {"Reg_7A", none, "7A", none},
        {"sPlan_7A", none, none, ""},         {"sPlan_R12_7A", none, none, "R12"},
        {"sPlan_A_B_7A", none, none, "A"},    {"sPlan_X7A", none, none, none},
        {"sPlanExtra_7A", none, none, none},  {"sPlan_8A", none, none, none},
    };
    const auto text = [](const std::optional<QString>& name) {
        return name ? *name : QString::fromLatin1(none);
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.table);
        const QString table = QString::fromLatin1(each.table);
        EXPECT_EQ(text(classOfClassTable(table)), QLatin1String(each.ofClass));
        EXPECT_EQ(text(classOfRegisterTable(table)), QLatin1String(each.ofRegister));
        EXPECT_EQ(text(roomOfSeatingPlan(table, u"7A"_s)), QLatin1String(each.room));
    }
    EXPECT_EQ(seatingPlanTable(u"7A"_s, u"R12"_s), u"sPlan_R12_7A"_s);
    EXPECT_EQ(seatingPlanExtraTable(u"7A"_s), u"sPlanExtra_7A"_s);
}

TEST(RegisterColumns, NamesGoThereAndBack) {
    const struct {
        RegisterColumn column;
        const char* name;
    } cases[] = {
        {{QDate(2004, 9, 13), 17}, "13/09/04 17"},
        {{QDate(1999, 12, 31), 1}, "31/12/99 1"},
        {{QDate(2029, 1, 2), 250}, "02/01/29 250"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(registerColumnName(each.column), QLatin1String(each.name));
        EXPECT_EQ(readRegisterColumn(QLatin1String(each.name).toString()), each.column);
    }
    for (const char16_t* name : {u"ID", u"", u"13/09/04", u"13/09/04 ", u"13/09/0417",
                                 u"Surname No", u"13/09/04 x", u"xx/09/04 1"})
        EXPECT_FALSE(readRegisterColumn(QStringView(name)))
            << QString::fromUtf16(name).toStdString();
}

} // namespace
