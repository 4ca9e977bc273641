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

TEST(Schema, FieldsOfTables) {
    struct Case {
        Table table;
        YearShape shape;
        const char* fields;
    };
    const Case cases[] = {
        {Table::Planning,
         {1, false},
         "ID:4+ PlanDate:10:8 Week:3 Class1:10:55Z Lesson1:12Z Homework1:12Z Dinner:12Z "
         "AfterSchool:12Z Notes:12Z"},
        {Table::Planning,
         {2, true},
         "ID:4+ PlanDate:10:8 Week:3 ABWeek:10:1 Class1:10:55Z Lesson1:12Z Homework1:12Z "
         "Class2:10:55Z Lesson2:12Z Homework2:12Z Dinner:12Z AfterSchool:12Z Notes:12Z"},
        {Table::Admin,
         {5, false},
         "Teacher:10:30 Year:10:9 PeriodsPerDay:3 TTweekly:3 Break1:3 Break2:3 Break3:3"},
        {Table::Admin,
         {5, true},
         "Teacher:10:30 Year:10:9 PeriodsPerDay:3 TTweekly:3 StartWeek:10:1 Break1:3 Break2:3 "
         "Break3:3"},
        {Table::Classcodes,
         {5, true},
         "Classcode:10:6 Mon:10:10Z Tue:10:10Z Wed:10:10Z Thu:10:10Z Fri:10:10Z Caption:10:255Z "
         "Colour:4 MonB:10:10Z TueB:10:10Z WedB:10:10Z ThuB:10:10Z FriB:10:10Z"},
        {Table::Class,
         {},
         "ID:4+ Surname:10:20 Firstname:10:20 Sex:10:1Z Tutor:10:10Z Address1:10:250Z "
         "Address2:10:250Z Address3:10:250Z PostCode:10:10Z Tel1:10:15Z Tel2:10:15Z Email:10:50Z "
         "Notes:12Z Photo:11"},
        {Table::LessonNotes, {}, "Ldate:10:10R Lcode:10:10R Lpupil:3R Lnotes:12"},
        {Table::Marks, {}, "ID:4"},
        {Table::ClassTemp, {}, "Surname:10:20 Firstname:10:20 Photo:11"},
        {Table::RoomID, {}, "Day:3 Period:3 Week:3 Caption:10:255Z"},
    };
    for (const Case& each : cases)
        EXPECT_EQ(written(schemaFields(each.table, each.shape)), QLatin1String(each.fields));
    const QList<dao::Field> calendar = schemaFields(Table::DateField);
    ASSERT_EQ(calendar.size(), 32);
    EXPECT_EQ(written(calendar.first()), u"Month:10:4"_s);
    EXPECT_EQ(written(calendar.last()), u"D31:12Z"_s);
    EXPECT_EQ(written(schemaField(Table::Class, u"pid")), u"PID:10:50Z"_s);
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
    struct Case {
        const char* table;
        const char* ofClass;
        const char* ofRegister;
        const char* room; ///< as a plan of class 7A
    };
    static constexpr const char* none = "-";
    const Case cases[] = {
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
    for (const Case& each : cases) {
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
    struct Case {
        RegisterColumn column;
        const char* name;
    };
    const Case cases[] = {
        {{QDate(2004, 9, 13), 17}, "13/09/04 17"},
        {{QDate(1999, 12, 31), 1}, "31/12/99 1"},
        {{QDate(2029, 1, 2), 250}, "02/01/29 250"},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(registerColumnName(each.column), QLatin1String(each.name));
        EXPECT_EQ(readRegisterColumn(QLatin1String(each.name).toString()), each.column);
    }
    for (const char16_t* name : {u"ID", u"", u"13/09/04", u"13/09/04 ", u"13/09/0417",
                                 u"Surname No", u"13/09/04 x", u"xx/09/04 1"})
        EXPECT_FALSE(readRegisterColumn(QStringView(name)))
            << QString::fromUtf16(name).toStdString();
}

} // namespace
