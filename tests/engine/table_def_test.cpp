// Changes of a file's structure: what they keep, what they refuse, and that related tables come to
// no harm when a table is built again.

#include "support/engine_files.h"

using dao::DataType;
using dao::TableDef;
using dao::Value;

namespace {

/// A class with pupils, a register and marks, related as a year's file relates them.
class TableDefTest : public EngineFiles {
protected:
    void SetUp() override {
        database = engine.CreateDatabase(path(u"year.mdb"_s), dao::GeneralLocale.toString());
        TableDef pupils = database.CreateTableDef(u"Class_7A"_s);
        pupils.Fields().Append(numberingField());
        pupils.Fields().Append(TableDef::CreateField(u"Surname"_s, DataType::Text, 20));
        dao::Index index = TableDef::CreateIndex(u"ID_index"_s);
        index.Primary = index.Unique = true;
        index.Fields = {u"ID"_s};
        pupils.AppendIndex(index);
        database.TableDefs().Append(pupils);
        appendTable(database, u"REG_7A"_s,
                    {TableDef::CreateField(u"ID"_s, DataType::Long),
                     emptyableField(u"06/09/24 1"_s, DataType::Text, 1),
                     emptyableField(u"07/09/24 2"_s, DataType::Text, 1)});
        relate(u"CReg_7A"_s, u"REG_7A"_s);
        for (const char* name : {"Adams", "Baker", "Clark"})
            addRecord(database, u"Class_7A"_s, {QString::fromUtf8(name)});
        dao::Recordset marks = database.OpenRecordset(u"REG_7A"_s);
        for (int id : {3, 1, 2}) {
            marks.AddNew();
            marks[u"ID"] = id;
            marks[u"06/09/24 1"] = QString::fromUtf8(id == 2 ? "O" : "/");
            marks.Update();
        }
    }

    void relate(const QString& name, const QString& foreignTable) {
        dao::Relation relation =
            database.CreateRelation(name, u"Class_7A"_s, foreignTable,
                                    dao::RelationUpdateCascade | dao::RelationDeleteCascade);
        relation.Fields += {u"ID"_s, u"ID"_s};
        database.Relations().Append(relation);
    }

    QStringList registerRows() const { return rowsOf(database, u"REG_7A"_s); }

    dao::Database database;
    const QStringList wholeRegister{u"3|/|~"_s, u"1|/|~"_s, u"2|O|~"_s};
};

} // namespace

TEST_F(TableDefTest, ADescriptionComesBackFromTheFile) {
    TableDef table = database.CreateTableDef(u"All types"_s);
    int size = 1;
    for (DataType type : {DataType::Boolean, DataType::Byte, DataType::Integer, DataType::Long,
                          DataType::Currency, DataType::Single, DataType::Double, DataType::Date,
                          DataType::Text, DataType::LongBinary, DataType::Memo, DataType::Guid}) {
        dao::Field field = TableDef::CreateField(u"a]b\"c'd "_s + QString::number(size), type,
                                                 type == DataType::Text ? 250 + size % 6 : 0);
        field.AllowZeroLength = size % 2 == 0 && (type == DataType::Text || type == DataType::Memo);
        field.Required = size % 3 == 0;
        field.OrdinalPosition = size++ - 1;
        table.Fields().Append(field);
    }
    database.TableDefs().Append(table);
    database.Close();
    database = engine.OpenDatabase(path(u"year.mdb"_s));
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
    EXPECT_EQ(relation.Name, u"CReg_7A"_s);
    EXPECT_EQ(relation.Attributes, 4352);
    const dao::Index index = database.TableDefs()[u"class_7a"].Indexes().value(0);
    EXPECT_EQ(index.Name, u"ID_index"_s);
    EXPECT_TRUE(index.Primary && index.Unique);
}

TEST_F(TableDefTest, FieldsAreAddedWhereTheirPositionSays) {
    dao::FieldCollection fields = database.TableDefs()[u"Class_7A"].Fields();
    fields.Append(emptyableField(u"Notes"_s, DataType::Memo));
    dao::Field second = TableDef::CreateField(u"PID"_s, DataType::Text, 50);
    second.OrdinalPosition = 1;
    fields.Append(second);
    EXPECT_EQ(fieldNames(database, u"Class_7A"_s),
              (QStringList{u"ID"_s, u"PID"_s, u"Surname"_s, u"Notes"_s}));
    EXPECT_EQ(rowsOf(database, u"SELECT ID, PID, Surname, Notes FROM Class_7A"_s),
              (QStringList{u"1|~|Adams|~"_s, u"2|~|Baker|~"_s, u"3|~|Clark|~"_s}));
    EXPECT_EQ(registerRows(), wholeRegister) << "related records went with the rebuilt table";
}

TEST_F(TableDefTest, FieldsAreRenamedMovedAndRemoved) {
    dao::FieldCollection fields = database.TableDefs()[u"REG_7A"].Fields();
    dao::FieldCollection stale = database.TableDefs()[u"REG_7A"].Fields();
    fields.Rename(u"06/09/24 1", u"Test"_s);
    fields.SetOrdinalPosition(u"test", 2);
    EXPECT_EQ(registerRows(), (QStringList{u"3|~|/"_s, u"1|~|/"_s, u"2|~|O"_s}));
    EXPECT_EQ(errorOf([&] { fields.Rename(u"Test", u"07/09/24 2"_s); }), dao::FieldExists);
    EXPECT_EQ(errorOf([&] { fields.Rename(u"Gone", u"Other"_s); }), dao::NoSuchItem);
    stale.Delete(u"07/09/24 2");
    EXPECT_EQ(fieldNames(database, u"REG_7A"_s), (QStringList{u"ID"_s, u"Test"_s}));
    fields.Rename(u"Test", u"TEST"_s);
    EXPECT_EQ(fieldNames(database, u"REG_7A"_s), (QStringList{u"ID"_s, u"TEST"_s}));
    EXPECT_EQ(rowsOf(database, u"SELECT test FROM REG_7A WHERE ID = 2"_s), QStringList{u"O"_s});
}

TEST_F(TableDefTest, AllFieldsAreSetAtOnce) {
    dao::FieldCollection fields = database.TableDefs()[u"REG_7A"].Fields();
    const QList<dao::Field> kept{fields[u"07/09/24 2"],
                                 emptyableField(u"say \"x\""_s, DataType::Text, 1), fields[u"ID"]};
    fields.SetAll(kept);
    EXPECT_EQ(fieldNames(database, u"REG_7A"_s),
              (QStringList{u"07/09/24 2"_s, u"say \"x\""_s, u"ID"_s}));
    EXPECT_EQ(registerRows(), (QStringList{u"~|~|3"_s, u"~|~|1"_s, u"~|~|2"_s}));
    EXPECT_EQ(database.Relations().all().size(), 1);
    EXPECT_EQ(errorOf([&] { fields.SetAll({kept[0], kept[1], kept[0]}); }), dao::FieldExists);
    EXPECT_EQ(errorOf([&] {
                  database.TableDefs()[u"Class_7A"].Fields().SetAll(
                      {emptyableField(u"x"_s, DataType::Memo)});
              }),
              dao::TableInRelation);
}

TEST_F(TableDefTest, RelationsHoldAfterEveryChangeOfTheirTables) {
    const QList<std::function<void()>> changes{
        [&] { database.TableDefs()[u"Class_7A"].Fields().Rename(u"Surname", u"Family"_s); },
        [&] { database.TableDefs()[u"Class_7A"].Fields().Rename(u"ID", u"PupilID"_s); },
        [&] { database.TableDefs()[u"REG_7A"].Fields().Rename(u"ID", u"Owner"_s); },
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
    dao::Recordset pupils = database.OpenRecordset(u"Class_7A"_s);
    pupils.FindFirst(u"Family = 'baker'"_s);
    pupils.Delete();
    EXPECT_EQ(registerRows(), (QStringList{u"3|/"_s, u"1|/"_s})) << "the deletion cascades";
    dao::Recordset marks = database.OpenRecordset(u"REG_7A"_s);
    marks.AddNew();
    marks[u"Owner"] = 99;
    EXPECT_EQ(errorOf([&] { marks.Update(); }), dao::RelatedRecordRequired);
}

TEST_F(TableDefTest, ATableInUseIsNotChanged) {
    dao::TableDefCollection tables = database.TableDefs();
    dao::Recordset records = database.OpenRecordset(
        u"SELECT * FROM Class_7A INNER JOIN REG_7A ON Class_7A.ID = REG_7A.ID"_s);
    dao::Recordset clone = records.Clone();
    records.Close();
    dao::FieldCollection fields = tables[u"REG_7A"].Fields();
    const QList<std::function<void()>> changes{
        [&] { fields.Append(emptyableField(u"x"_s, DataType::Text, 1)); },
        [&] { fields.Delete(u"07/09/24 2"); },
        [&] { fields.Rename(u"07/09/24 2", u"y"_s); },
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
    for (const QString& name : {u""_s, u" x"_s, u"a.b"_s, u"a!b"_s, u"a`b"_s, QString(65, u'x')}) {
        EXPECT_EQ(errorOf([&] { fields.Append(emptyableField(name, DataType::Text, 1)); }),
                  dao::InvalidName)
            << qPrintable(name);
        EXPECT_EQ(errorOf([&] { appendTable(database, name, {numberingField()}); }),
                  dao::InvalidName);
    }
    EXPECT_EQ(errorOf([&] { fields.Append(numberingField(u"id"_s)); }), dao::FieldExists);
    EXPECT_EQ(errorOf([&] { appendTable(database, u"reg_7a"_s, {numberingField()}); }),
              dao::TableExists);
    EXPECT_EQ(errorOf([&] { appendTable(database, u"Empty"_s, {}); }), dao::InvalidOperation);
    EXPECT_EQ(errorOf([&] { tables.Delete(u"Nothing"); }), dao::NoSuchItem);
    EXPECT_EQ(errorOf([&] { tables.Delete(u"Class_7A"); }), dao::TableInRelation);
    {
        const dao::Transaction quick(database);
        while (fields.Count() < 255)
            fields.Append(emptyableField(u"f%1"_s.arg(fields.Count()), DataType::Text, 1));
        EXPECT_EQ(errorOf([&] { fields.Append(emptyableField(u"x"_s, DataType::Text, 1)); }),
                  dao::TooManyFields);
    }
    EXPECT_EQ(fields.Count(), 3);
}

TEST_F(TableDefTest, NamesThatDifferInCaseAloneAreOne) {
    appendTable(database, u"Class_9É"_s, {numberingField(u"Ärger"_s)});
    EXPECT_TRUE(database.TableDefs().Contains(u"cLASS_9é"_s));
    EXPECT_EQ(errorOf([&] { appendTable(database, u"CLASS_9é"_s, {numberingField()}); }),
              dao::TableExists);
    EXPECT_EQ(rowsOf(database, u"SELECT [äRGER] FROM class_9é"_s).size(), 0);
}

TEST_F(TableDefTest, NumbersOfDeletedRecordsAreNotGivenAgain) {
    dao::Recordset pupils = database.OpenRecordset(u"Class_7A"_s);
    pupils.MoveLast();
    pupils.Delete();
    pupils.Close();
    database.TableDefs()[u"Class_7A"].Fields().Rename(u"Surname", u"Family"_s);
    addRecord(database, u"Class_7A"_s, {u"Dale"_s});
    EXPECT_EQ(rowsOf(database, u"Class_7A"_s).last(), u"4|Dale"_s);
}

TEST_F(TableDefTest, AKeyAdmitsARecordOnce) {
    appendTable(database, u"sPlan_7A"_s,
                {TableDef::CreateField(u"ID"_s, DataType::Long),
                 emptyableField(u"Caption"_s, DataType::Text, 255)});
    dao::Index index = TableDef::CreateIndex(u"ID_index"_s);
    index.Primary = index.Unique = true;
    index.Fields = {u"ID"_s};
    database.TableDefs()[u"sPlan_7A"].AppendIndex(index);
    dao::Recordset desks = database.OpenRecordset(u"sPlan_7A"_s);
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
    EXPECT_EQ(rowsOf(database, u"sPlan_7A"_s), (QStringList{u"5|~"_s, u"6|~"_s}));
}

TEST_F(TableDefTest, ATransactionIsDoneWholeOrNotAtAll) {
    dao::Recordset pupils = database.OpenRecordset(u"Class_7A"_s);
    {
        const dao::Transaction outer(database);
        pupils.Edit();
        pupils[u"Surname"] = u"Changed"_s;
        pupils.Update();
        {
            dao::Transaction inner(database);
            appendTable(database, u"New"_s, {numberingField()});
            inner.commit();
        }
        EXPECT_TRUE(database.TableDefs().Contains(u"New"));
    }
    EXPECT_FALSE(database.TableDefs().Contains(u"New"));
    EXPECT_EQ(pupils.Collect(u"Surname").toText(), u"Adams"_s);

    dao::Workspace workspace = engine.CreateWorkspace(u"w"_s, u"admin"_s, u""_s);
    database.Close();
    dao::Database again = workspace.OpenDatabase(path(u"year.mdb"_s));
    EXPECT_EQ(errorOf([&] { workspace.CommitTrans(); }), dao::NoTransaction);
    workspace.BeginTrans();
    addRecord(again, u"Class_7A"_s, {u"Dale"_s});
    workspace.CommitTrans();
    workspace.BeginTrans();
    addRecord(again, u"Class_7A"_s, {u"Ellis"_s});
    workspace.Close();
    EXPECT_FALSE(again.isOpen());
    again = engine.OpenDatabase(path(u"year.mdb"_s));
    EXPECT_EQ(rowsOf(again, u"SELECT Surname FROM Class_7A WHERE ID > 3"_s),
              QStringList{u"Dale"_s});
}

TEST_F(TableDefTest, ARelationNeedsAKeyToHoldOnTo) {
    dao::Relation relation = database.CreateRelation(u"Names"_s, u"Class_7A"_s, u"Marks_7A"_s,
                                                     dao::RelationDeleteCascade);
    relation.Fields += {u"Surname"_s, u"Surname"_s};
    dao::TableDef related = database.CreateTableDef(u"Marks_7A"_s);
    related.Fields().Append(TableDef::CreateField(u"Surname"_s, DataType::Text, 20));
    related.AppendRelation(relation);
    EXPECT_EQ(errorOf([&] { database.TableDefs().Append(related); }), dao::InvalidOperation);
    appendTable(database, u"Marks_7A"_s, {TableDef::CreateField(u"Surname"_s, DataType::Text, 20)});
    EXPECT_EQ(errorOf([&] { database.Relations().Append(relation); }), dao::InvalidOperation);
}
