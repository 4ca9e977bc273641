// Changes of a file's structure: what they keep, what they refuse, and that related tables come to
// no harm when a table is built again.

#include "support/engine_files.h"

using dao::DataType;
using dao::TableDef;
using dao::Value;

namespace {

QString u(const char* text) {
    return QString::fromUtf8(text);
}

QStringList fieldNames(const dao::Database& database, const QString& table) {
    QStringList names;
    for (const dao::Field& field : database.TableDefs()[table].Fields())
        names += field.Name;
    return names;
}

/// A class with pupils, a register and marks, related as a year's file relates them.
class TableDefTest : public EngineFiles {
protected:
    void SetUp() override {
        database = engine.CreateDatabase(path(u("year.mdb")), dao::GeneralLocale.toString());
        TableDef pupils = database.CreateTableDef(u("Class_7A"));
        pupils.Fields().Append(numberingField());
        pupils.Fields().Append(TableDef::CreateField(u("Surname"), DataType::Text, 20));
        dao::Index index = TableDef::CreateIndex(u("ID_index"));
        index.Primary = index.Unique = true;
        index.Fields = {u("ID")};
        pupils.AppendIndex(index);
        database.TableDefs().Append(pupils);
        appendTable(database, u("REG_7A"),
                    {TableDef::CreateField(u("ID"), DataType::Long),
                     emptyableField(u("06/09/24 1"), DataType::Text, 1),
                     emptyableField(u("07/09/24 2"), DataType::Text, 1)});
        relate(u("CReg_7A"), u("REG_7A"));
        for (const char* name : {"Adams", "Baker", "Clark"})
            addRecord(database, u("Class_7A"), {u(name)});
        dao::Recordset marks = database.OpenRecordset(u("REG_7A"));
        for (int id : {3, 1, 2}) {
            marks.AddNew();
            marks[u"ID"] = id;
            marks[u"06/09/24 1"] = u(id == 2 ? "O" : "/");
            marks.Update();
        }
    }

    void relate(const QString& name, const QString& foreignTable) {
        dao::Relation relation =
            database.CreateRelation(name, u("Class_7A"), foreignTable,
                                    dao::RelationUpdateCascade | dao::RelationDeleteCascade);
        relation.Fields += {u("ID"), u("ID")};
        database.Relations().Append(relation);
    }

    QStringList registerRows() const { return rowsOf(database, u("REG_7A")); }

    dao::Database database;
    const QStringList wholeRegister{u("3|/|~"), u("1|/|~"), u("2|O|~")};
};

} // namespace

TEST_F(TableDefTest, ADescriptionComesBackFromTheFile) {
    TableDef table = database.CreateTableDef(u("All types"));
    int size = 1;
    for (DataType type : {DataType::Boolean, DataType::Byte, DataType::Integer, DataType::Long,
                          DataType::Currency, DataType::Single, DataType::Double, DataType::Date,
                          DataType::Text, DataType::LongBinary, DataType::Memo, DataType::Guid}) {
        dao::Field field = TableDef::CreateField(u("a]b\"c'd ") + QString::number(size), type,
                                                 type == DataType::Text ? 250 + size % 6 : 0);
        field.AllowZeroLength = size % 2 == 0 && (type == DataType::Text || type == DataType::Memo);
        field.Required = size % 3 == 0;
        field.OrdinalPosition = size++ - 1;
        table.Fields().Append(field);
    }
    database.TableDefs().Append(table);
    database.Close();
    database = engine.OpenDatabase(path(u("year.mdb")));
    const dao::TableStructure read = database.TableDefs()[u"ALL TYPES"].structure();
    ASSERT_EQ(read.fields.size(), table.structure().fields.size());
    for (qsizetype i = 0; i < read.fields.size(); ++i) {
        const dao::Field& wanted = table.structure().fields.at(i);
        const dao::Field& got = read.fields.at(i);
        EXPECT_EQ(got.Name, wanted.Name);
        EXPECT_EQ(got.Type, wanted.Type);
        EXPECT_EQ(got.Size, wanted.Size);
        EXPECT_EQ(got.AllowZeroLength, wanted.AllowZeroLength) << qPrintable(got.Name);
        EXPECT_EQ(got.Required, wanted.Required);
        EXPECT_EQ(got.OrdinalPosition, i);
    }
    const dao::Relation relation = database.Relations().all().value(0);
    EXPECT_EQ(relation.Name, u("CReg_7A"));
    EXPECT_EQ(relation.Attributes, 4352);
    const dao::Index index = database.TableDefs()[u"class_7a"].Indexes().value(0);
    EXPECT_EQ(index.Name, u("ID_index"));
    EXPECT_TRUE(index.Primary && index.Unique);
}

TEST_F(TableDefTest, FieldsAreAddedWhereTheirPositionSays) {
    dao::FieldCollection fields = database.TableDefs()[u"Class_7A"].Fields();
    fields.Append(emptyableField(u("Notes"), DataType::Memo));
    dao::Field second = TableDef::CreateField(u("PID"), DataType::Text, 50);
    second.OrdinalPosition = 1;
    fields.Append(second);
    EXPECT_EQ(fieldNames(database, u("Class_7A")),
              (QStringList{u("ID"), u("PID"), u("Surname"), u("Notes")}));
    EXPECT_EQ(rowsOf(database, u("SELECT ID, PID, Surname, Notes FROM Class_7A")),
              (QStringList{u("1|~|Adams|~"), u("2|~|Baker|~"), u("3|~|Clark|~")}));
    EXPECT_EQ(registerRows(), wholeRegister) << "related records went with the rebuilt table";
}

TEST_F(TableDefTest, FieldsAreRenamedMovedAndRemoved) {
    dao::FieldCollection fields = database.TableDefs()[u"REG_7A"].Fields();
    dao::FieldCollection stale = database.TableDefs()[u"REG_7A"].Fields();
    fields.Rename(u"06/09/24 1", u("Test"));
    fields.SetOrdinalPosition(u"test", 2);
    EXPECT_EQ(registerRows(), (QStringList{u("3|~|/"), u("1|~|/"), u("2|~|O")}));
    EXPECT_EQ(errorOf([&] { fields.Rename(u"Test", u("07/09/24 2")); }), dao::FieldExists);
    EXPECT_EQ(errorOf([&] { fields.Rename(u"Gone", u("Other")); }), dao::NoSuchItem);
    stale.Delete(u"07/09/24 2");
    EXPECT_EQ(fieldNames(database, u("REG_7A")), (QStringList{u("ID"), u("Test")}));
    fields.Rename(u"Test", u("TEST"));
    EXPECT_EQ(fieldNames(database, u("REG_7A")), (QStringList{u("ID"), u("TEST")}));
    EXPECT_EQ(rowsOf(database, u("SELECT test FROM REG_7A WHERE ID = 2")), QStringList{u("O")});
}

TEST_F(TableDefTest, RelationsHoldAfterEveryChangeOfTheirTables) {
    const QList<std::function<void()>> changes{
        [&] { database.TableDefs()[u"Class_7A"].Fields().Rename(u"Surname", u("Family")); },
        [&] { database.TableDefs()[u"Class_7A"].Fields().Rename(u"ID", u("PupilID")); },
        [&] { database.TableDefs()[u"REG_7A"].Fields().Rename(u"ID", u("Owner")); },
        [&] { database.TableDefs()[u"Class_7A"].Fields().SetOrdinalPosition(u"Family", 0); },
        [&] { database.TableDefs()[u"REG_7A"].Fields().Delete(u"07/09/24 2"); },
    };
    for (const auto& change : changes) {
        {
            const dao::Transaction whole(database); // also inside a transaction
            change();
        }
        change();
        ASSERT_EQ(registerRows().size(), 3);
        ASSERT_EQ(database.Relations().all().size(), 1);
    }
    dao::Recordset pupils = database.OpenRecordset(u("Class_7A"));
    pupils.FindFirst(u("Family = 'baker'"));
    pupils.Delete();
    EXPECT_EQ(registerRows(), (QStringList{u("3|/"), u("1|/")})) << "the deletion cascades";
    dao::Recordset marks = database.OpenRecordset(u("REG_7A"));
    marks.AddNew();
    marks[u"Owner"] = 99;
    EXPECT_EQ(errorOf([&] { marks.Update(); }), dao::RelatedRecordRequired);
}

TEST_F(TableDefTest, ATableInUseIsNotChanged) {
    dao::TableDefCollection tables = database.TableDefs();
    dao::Recordset records = database.OpenRecordset(
        u("SELECT * FROM Class_7A INNER JOIN REG_7A ON Class_7A.ID = REG_7A.ID"));
    dao::Recordset clone = records.Clone();
    records.Close();
    dao::FieldCollection fields = tables[u"REG_7A"].Fields();
    const QList<std::function<void()>> changes{
        [&] { fields.Append(emptyableField(u("x"), DataType::Text, 1)); },
        [&] { fields.Delete(u"07/09/24 2"); },
        [&] { fields.Rename(u"07/09/24 2", u("y")); },
        [&] { fields.SetOrdinalPosition(u"07/09/24 2", 1); },
        [&] { tables.Delete(u"reg_7a"); },
    };
    for (const auto& change : changes)
        EXPECT_EQ(errorOf(change), dao::TableInUse);
    clone.Close();
    EXPECT_EQ(errorOf(changes.first()), 0);
    EXPECT_EQ(errorOf(changes.last()), 0);
}

TEST_F(TableDefTest, NamesAndCountsThatCantBeAreRefused) {
    dao::TableDefCollection tables = database.TableDefs();
    dao::FieldCollection fields = tables[u"REG_7A"].Fields();
    for (const QString& name : {u(""), u(" x"), u("a.b"), u("a!b"), u("a`b"), QString(65, u'x')}) {
        EXPECT_EQ(errorOf([&] { fields.Append(emptyableField(name, DataType::Text, 1)); }),
                  dao::InvalidName)
            << qPrintable(name);
        EXPECT_EQ(errorOf([&] { appendTable(database, name, {numberingField()}); }),
                  dao::InvalidName);
    }
    EXPECT_EQ(errorOf([&] { fields.Append(numberingField(u("id"))); }), dao::FieldExists);
    EXPECT_EQ(errorOf([&] { appendTable(database, u("reg_7a"), {numberingField()}); }),
              dao::TableExists);
    EXPECT_EQ(errorOf([&] { appendTable(database, u("Empty"), {}); }), dao::InvalidOperation);
    EXPECT_EQ(errorOf([&] { tables.Delete(u"Nothing"); }), dao::NoSuchItem);
    EXPECT_EQ(errorOf([&] { tables.Delete(u"Class_7A"); }), dao::TableInRelation);
    {
        const dao::Transaction quick(database);
        while (fields.Count() < 255)
            fields.Append(emptyableField(u("f%1").arg(fields.Count()), DataType::Text, 1));
        EXPECT_EQ(errorOf([&] { fields.Append(emptyableField(u("x"), DataType::Text, 1)); }),
                  dao::TooManyFields);
    }
    EXPECT_EQ(fields.Count(), 3);
}

TEST_F(TableDefTest, NamesThatDifferInCaseAloneAreOne) {
    appendTable(database, u("Class_9\xc3\x89"), {numberingField(u("\xc3\x84rger"))});
    EXPECT_TRUE(database.TableDefs().Contains(u("cLASS_9\xc3\xa9")));
    EXPECT_EQ(errorOf([&] { appendTable(database, u("CLASS_9\xc3\xa9"), {numberingField()}); }),
              dao::TableExists);
    EXPECT_EQ(rowsOf(database, u("SELECT [\xc3\xa4RGER] FROM class_9\xc3\xa9")).size(), 0);
}

TEST_F(TableDefTest, NumbersOfDeletedRecordsAreNotGivenAgain) {
    dao::Recordset pupils = database.OpenRecordset(u("Class_7A"));
    pupils.MoveLast();
    pupils.Delete();
    pupils.Close();
    database.TableDefs()[u"Class_7A"].Fields().Rename(u"Surname", u("Family"));
    addRecord(database, u("Class_7A"), {u("Dale")});
    EXPECT_EQ(rowsOf(database, u("Class_7A")).last(), u("4|Dale"));
}

TEST_F(TableDefTest, AKeyAdmitsARecordOnce) {
    appendTable(database, u("sPlan_7A"),
                {TableDef::CreateField(u("ID"), DataType::Long),
                 emptyableField(u("Caption"), DataType::Text, 255)});
    dao::Index index = TableDef::CreateIndex(u("ID_index"));
    index.Primary = index.Unique = true;
    index.Fields = {u("ID")};
    database.TableDefs()[u"sPlan_7A"].AppendIndex(index);
    dao::Recordset desks = database.OpenRecordset(u("sPlan_7A"));
    for (int i = 0; i < 2; ++i) {
        desks.AddNew();
        desks[u"ID"] = 5;
        EXPECT_EQ(errorOf([&] { desks.Update(); }), i == 0 ? 0 : dao::DuplicateKey);
    }
    EXPECT_EQ(desks.EditMode(), dao::EditMode::Add) << "a refused change stays begun";
    desks[u"ID"] = Value();
    EXPECT_EQ(errorOf([&] { desks.Update(); }), dao::FieldRequired);
    desks[u"ID"] = 6;
    desks.Update();
    EXPECT_EQ(rowsOf(database, u("sPlan_7A")), (QStringList{u("5|~"), u("6|~")}));
}

TEST_F(TableDefTest, ATransactionIsDoneWholeOrNotAtAll) {
    dao::Recordset pupils = database.OpenRecordset(u("Class_7A"));
    {
        const dao::Transaction outer(database);
        pupils.Edit();
        pupils[u"Surname"] = u("Changed");
        pupils.Update();
        {
            dao::Transaction inner(database);
            appendTable(database, u("New"), {numberingField()});
            inner.commit();
        }
        EXPECT_TRUE(database.TableDefs().Contains(u"New"));
    }
    EXPECT_FALSE(database.TableDefs().Contains(u"New"));
    EXPECT_EQ(pupils.Collect(u"Surname").toText(), u("Adams"));

    dao::Workspace workspace = engine.CreateWorkspace(u("w"), u("admin"), u(""));
    database.Close();
    dao::Database again = workspace.OpenDatabase(path(u("year.mdb")));
    EXPECT_EQ(errorOf([&] { workspace.CommitTrans(); }), dao::NoTransaction);
    workspace.BeginTrans();
    addRecord(again, u("Class_7A"), {u("Dale")});
    workspace.CommitTrans();
    workspace.BeginTrans();
    addRecord(again, u("Class_7A"), {u("Ellis")});
    workspace.Close();
    EXPECT_FALSE(again.isOpen());
    again = engine.OpenDatabase(path(u("year.mdb")));
    EXPECT_EQ(rowsOf(again, u("SELECT Surname FROM Class_7A WHERE ID > 3")),
              QStringList{u("Dale")});
}

TEST_F(TableDefTest, ARelationNeedsAKeyToHoldOnTo) {
    dao::Relation relation = database.CreateRelation(u("Names"), u("Class_7A"), u("Marks_7A"),
                                                     dao::RelationDeleteCascade);
    relation.Fields += {u("Surname"), u("Surname")};
    dao::TableDef related = database.CreateTableDef(u("Marks_7A"));
    related.Fields().Append(TableDef::CreateField(u("Surname"), DataType::Text, 20));
    related.AppendRelation(relation);
    EXPECT_EQ(errorOf([&] { database.TableDefs().Append(related); }), dao::InvalidOperation);
    appendTable(database, u("Marks_7A"), {TableDef::CreateField(u("Surname"), DataType::Text, 20)});
    EXPECT_EQ(errorOf([&] { database.Relations().Append(relation); }), dao::InvalidOperation);
}
