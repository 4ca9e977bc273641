// Walks, edits and searches of recordsets, at their edges above all: both ends, deleted records,
// clones, joins, and what happens to a change that can't be written.

#include "support/engine_files.h"

#include "store/engine/names.h"

#include <sqlcipher/sqlite3.h>

using dao::Value;

namespace {

class RecordsetTest : public EngineFiles {
protected:
    void SetUp() override {
        database = pupilsFile();
        for (const auto& [name, mark] :
             QList<std::pair<QString, Value>>{{u"Adams"_s, 3}, {u"baker"_s, {}}, {u"Clark"_s, 7}})
            addRecord(database, u"Pupils"_s, {name, mark});
    }

    dao::Database database;
};

} // namespace

TEST_F(RecordsetTest, WalksBetweenItsEnds) {
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    EXPECT_EQ(records.RecordCount(), 3);
    EXPECT_EQ(records.AbsolutePosition(), 0);
    records.MovePrevious();
    EXPECT_TRUE(records.BOF());
    EXPECT_EQ(records.AbsolutePosition(), -1);
    EXPECT_EQ(errorOf([&] { records.Collect(u"Surname"); }), dao::NoCurrentRecord);
    EXPECT_EQ(errorOf([&] { records.MovePrevious(); }), dao::NoCurrentRecord);
    records.MoveLast();
    EXPECT_EQ(records.Collect(u"SURNAME").toText(), u"Clark"_s);
    records.MoveNext();
    EXPECT_TRUE(records.EOF_());
    EXPECT_EQ(errorOf([&] { records.MoveNext(); }), dao::NoCurrentRecord);
    records.MovePrevious();
    EXPECT_EQ(records.AbsolutePosition(), 2);
    records.SetAbsolutePosition(1);
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"baker"_s);
    EXPECT_TRUE(records.Collect(u"Mark").isNull());
    EXPECT_EQ(errorOf([&] { records.Collect(u"Forename"); }), dao::NoSuchItem);
}

TEST_F(RecordsetTest, AnEmptyOneIsAtBothEnds) {
    dao::Recordset records = database.OpenRecordset(u"SELECT * FROM Pupils WHERE Mark > 99"_s);
    EXPECT_TRUE(records.BOF() && records.EOF_());
    for (const auto& move : QList<std::function<void()>>{
             [&] { records.MoveFirst(); }, [&] { records.MoveLast(); }, [&] { records.MoveNext(); },
             [&] { records.MovePrevious(); }, [&] { records.Delete(); }, [&] { records.Edit(); }})
        EXPECT_EQ(errorOf(move), dao::NoCurrentRecord);
    records.FindFirst(u"Mark = 3"_s);
    EXPECT_TRUE(records.NoMatch());
}

TEST_F(RecordsetTest, AnAddedRecordStandsLastAndThePlaceStays) {
    dao::Recordset records = database.OpenRecordset(u"SELECT * FROM Pupils ORDER BY Surname"_s);
    records.AddNew();
    EXPECT_TRUE(records.Collect(u"Surname").isNull());
    records[u"Surname"] = u"Aaron"_s;
    records.Update();
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"Adams"_s);
    EXPECT_EQ(records.RecordCount(), 4);
    records.SetBookmark(records.LastModified());
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"Aaron"_s);
    EXPECT_EQ(records.Collect(u"ID").toInteger(), 4);
    EXPECT_EQ(records.AbsolutePosition(), 3);
}

TEST_F(RecordsetTest, LeavingARecordDropsItsChange) {
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    records.Edit();
    records[u"Surname"] = u"Changed"_s;
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"Changed"_s);
    records.MoveNext();
    EXPECT_EQ(records.EditMode(), dao::EditMode::None);
    records.MoveFirst();
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"Adams"_s);
    EXPECT_EQ(errorOf([&] { records.Update(); }), dao::EditNotBegun);
    EXPECT_EQ(errorOf([&] { records[u"Surname"] = u"x"_s; }), dao::EditNotBegun);
}

TEST_F(RecordsetTest, ARefusedValueLeavesTheEditOpen) {
    struct Case {
        const char16_t* field;
        Value value;
        int error;
    };
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    records.Edit();
    for (const Case& refused :
         {Case{u"Surname", u"123456789012345678901"_s, dao::TextTooLong},
          Case{u"Surname", u""_s, dao::ZeroLengthNotAllowed},
          Case{u"Mark", u"seven"_s, dao::ConversionError},
          Case{u"Mark", u""_s, dao::ConversionError}, Case{u"Mark", 32768, dao::ConversionError},
          Case{u"Mark", QByteArray("7"), dao::ConversionError},
          Case{u"ID", 9, dao::InvalidOperation}})
        EXPECT_EQ(errorOf([&] { records[refused.field] = refused.value; }), refused.error);
    records[u"Surname"] = u"12345678901234567890"_s;
    records[u"Mark"] = u" -32768 "_s;
    records[u"Notes"] = u""_s;
    records.Update();
    EXPECT_EQ(records.Collect(u"Mark"), Value(-32768));
    EXPECT_EQ(records.Collect(u"Notes"), Value(u""_s)) << "an empty text is not Null";
}

TEST_F(RecordsetTest, ADeletedRecordIsGoneForClonesToo) {
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    dao::Recordset clone = records.Clone();
    EXPECT_EQ(errorOf([&] { clone.Collect(0); }), dao::NoCurrentRecord);
    records.MoveNext();
    const dao::Bookmark second = records.Bookmark();
    clone.SetBookmark(second);
    EXPECT_EQ(clone.Collect(u"Surname").toText(), u"baker"_s);
    records.Delete();
    EXPECT_EQ(errorOf([&] { records.Collect(0); }), dao::RecordDeleted);
    EXPECT_EQ(errorOf([&] { clone.Collect(0); }), dao::RecordDeleted);
    EXPECT_EQ(errorOf([&] { clone.SetBookmark(second); }), dao::RecordDeleted);
    EXPECT_EQ(clone.RecordCount(), 2);
    records.MoveNext();
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"Clark"_s);
    EXPECT_EQ(records.AbsolutePosition(), 1);
    records.MovePrevious();
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"Adams"_s);
}

TEST_F(RecordsetTest, EveryRecordCanBeDeletedInAWalk) {
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    for (records.MoveFirst(); !records.EOF_(); records.MoveNext()) {
        records.Edit();
        records.Delete();
    }
    EXPECT_TRUE(records.BOF() && records.EOF_());
    EXPECT_EQ(rowsOf(database, u"Pupils"_s).size(), 0);
}

TEST_F(RecordsetTest, AWalkThatReadsAheadSeesWhatHappenedMeanwhile) {
    for (const char* name : {"Davies", "Evans", "Foster", "Green"})
        addRecord(database, u"Pupils"_s, {QString::fromUtf8(name)});
    dao::Recordset gap = database.OpenRecordset(u"SELECT * FROM Pupils WHERE Surname = 'Davies'"_s);
    gap.Delete();
    const dao::Database other = engine.OpenDatabase(database.Name());
    // A whole table, a part of it and a sorted one are read ahead in different ways.
    for (const char* source :
         {"Pupils", "SELECT * FROM Pupils WHERE ID > 0", "SELECT * FROM Pupils ORDER BY Surname"}) {
        dao::Recordset records = other.OpenRecordset(QString::fromUtf8(source));
        dao::Transaction transaction(database);
        dao::Recordset changed = database.OpenRecordset(u"Pupils"_s);
        changed.FindFirst(u"Surname = 'Evans'"_s);
        changed.Edit();
        changed[u"Mark"] = changed.Collect(u"Mark").toInteger() + 1;
        changed.Update();
        const int before = static_cast<int>(changed.Collect(u"Mark").toInteger()) - 1;
        QStringList names{records.Collect(u"Surname").toText()};
        for (int i = 0; i < 3; ++i) {
            records.MoveNext();
            names += records.Collect(u"Surname").toText();
        }
        EXPECT_EQ(names, (QStringList{u"Adams"_s, u"baker"_s, u"Clark"_s, u"Evans"_s})) << source;
        EXPECT_EQ(records.Collect(u"Mark").toInteger(), before) << "not committed yet";
        records.MovePrevious();
        transaction.commit();
        records.MoveNext();
        EXPECT_EQ(records.Collect(u"Mark").toInteger(), before + 1) << source;
    }

    dao::Recordset records = other.OpenRecordset(u"Pupils"_s);
    dao::Recordset deleting = database.OpenRecordset(u"Pupils"_s);
    deleting.SetAbsolutePosition(4);
    deleting.Delete();
    for (int i = 0; i < 4; ++i) {
        EXPECT_FALSE(records.Collect(u"Surname").isNull());
        records.MoveNext();
    }
    EXPECT_EQ(errorOf([&] { records.Collect(u"Surname"); }), dao::RecordDeleted);
    records.MoveNext();
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"Green"_s);
}

TEST_F(RecordsetTest, FindsByConditionAndStaysWithoutAMatch) {
    struct Case {
        const char* criteria;
        int position; ///< -1 for no match
    };
    for (const auto type : {dao::RecordsetType::Dynaset, dao::RecordsetType::Snapshot}) {
        dao::Recordset records =
            database.OpenRecordset(u"SELECT * FROM Pupils ORDER BY Surname DESC"_s, type);
        for (const Case& find :
             {Case{"Surname = 'BAKER'", 1}, Case{"Mark = 7", 0}, Case{"Mark < 100", 0},
              Case{"Mark Is Null", 1}, Case{"Surname Like \"*A*\"", 0}, Case{"Mark = 8", -1},
              Case{"NOT Mark = 3", 0}, Case{"Pupils.Surname = 'adams'", 2}}) {
            records.MoveLast();
            records.FindFirst(QString::fromUtf8(find.criteria));
            EXPECT_EQ(records.NoMatch(), find.position < 0) << find.criteria;
            EXPECT_EQ(records.AbsolutePosition(), find.position < 0 ? 2 : find.position)
                << find.criteria;
        }
        EXPECT_EQ(errorOf([&] { records.FindFirst(u"Surname = 'O'Hara'"_s); }), dao::SyntaxError);
        EXPECT_EQ(errorOf([&] { records.FindFirst(u"Forename = 'x'"_s); }), dao::UnknownFieldInSql);
    }
}

TEST_F(RecordsetTest, ASnapshotKeepsItsValuesAndCantBeChanged) {
    dao::Recordset snapshot = database.OpenRecordset(u"Pupils"_s, dao::RecordsetType::Snapshot);
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    records.Edit();
    records[u"Surname"] = u"Evans"_s;
    records.Update();
    EXPECT_EQ(snapshot.Collect(u"Surname").toText(), u"Adams"_s);
    EXPECT_EQ(errorOf([&] { snapshot.Edit(); }), dao::NotSupported);
    EXPECT_EQ(errorOf([&] { snapshot.AddNew(); }), dao::NotSupported);
    EXPECT_EQ(errorOf([&] { snapshot.Delete(); }), dao::NotSupported);
}

TEST_F(RecordsetTest, SortOrdersTheNextRecordset) {
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    records.SetSort(u"Mark DESC, Surname"_s);
    dao::Recordset sorted = records.OpenRecordset();
    EXPECT_EQ(sorted.Collect(u"Surname").toText(), u"Clark"_s);
    sorted.MoveLast();
    EXPECT_TRUE(sorted.Collect(u"Mark").isNull()) << "Null comes first in rising order";
    EXPECT_EQ(records.Collect(u"Surname").toText(), u"Adams"_s);
}

TEST_F(RecordsetTest, AnEditThroughAJoinGoesToTheFieldsOwnTable) {
    appendTable(database, u"Marks_7A"_s,
                {dao::TableDef::CreateField(u"ID"_s, dao::DataType::Long),
                 emptyableField(u"Test 1"_s, dao::DataType::Text, 5)});
    dao::Recordset marks = database.OpenRecordset(u"Marks_7A"_s);
    for (int id : {1, 3}) {
        marks.AddNew();
        marks[u"ID"] = id;
        marks.Update();
    }
    dao::Recordset joined = database.OpenRecordset(
        u"SELECT Pupils.Surname, Marks_7A.* FROM Pupils INNER JOIN Marks_7A ON "
        "Pupils.ID = Marks_7A.ID ORDER BY Surname DESC"_s);
    ASSERT_EQ(joined.RecordCount(), 2);
    EXPECT_EQ(joined[u"Test 1"].SourceTable(), u"Marks_7A"_s);
    joined.Edit();
    joined[u"Surname"] = u"Zed"_s;
    joined[u"Test 1"] = u"B+"_s;
    joined.Update();
    EXPECT_EQ(rowsOf(database, u"SELECT Surname FROM Pupils WHERE ID = 3"_s),
              QStringList{u"Zed"_s});
    EXPECT_EQ(rowsOf(database, u"Marks_7A"_s), (QStringList{u"1|~"_s, u"3|B+"_s}));
    EXPECT_EQ(errorOf([&] { joined.AddNew(); }), dao::InvalidOperation);
    joined.Delete();
    EXPECT_EQ(rowsOf(database, u"Marks_7A"_s), QStringList{u"1|~"_s});
    EXPECT_EQ(rowsOf(database, u"Pupils"_s).size(), 3);
}

TEST_F(RecordsetTest, LongFieldsAreReadAndWrittenInParts) {
    appendTable(
        database, u"Photos"_s,
        {numberingField(), dao::TableDef::CreateField(u"Photo"_s, dao::DataType::LongBinary)});
    dao::Recordset photos = database.OpenRecordset(u"Photos"_s);
    const QByteArray picture("\0\xff\x01 bytes", 9);
    photos.AddNew();
    photos[u"Photo"].AppendChunk(picture.left(4));
    photos[u"Photo"].AppendChunk(picture.mid(4));
    photos.Update();
    photos.MoveFirst();
    EXPECT_EQ(photos[u"Photo"].FieldSize(), 9);
    EXPECT_EQ(photos[u"Photo"].GetChunk(2, 3), picture.mid(2, 3));
    photos.Edit();
    photos[u"Photo"].AppendChunk("new");
    photos.Update();
    EXPECT_EQ(photos.Collect(u"Photo").toBinary(), QByteArray("new"));
    photos.Edit();
    photos[u"Photo"] = Value();
    photos.Update();
    EXPECT_EQ(photos[u"Photo"].FieldSize(), 0);
}

TEST_F(RecordsetTest, TextsThatLookLikeNumbersStayTexts) {
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    for (const char* text : {"007", "1e5", "+3", " 4", "0x10", "-0", "3.0", "9223372036854775808",
                             "NULL", "'", "\"", "a]b", "\xc3\x89mile", "\xf0\x9f\x93\x9a"}) {
        records.Edit();
        records[u"Surname"] = QString::fromUtf8(text);
        records[u"Notes"] = QString::fromUtf8(text);
        records.Update();
        EXPECT_EQ(records.Collect(u"Surname"), Value(QString::fromUtf8(text)));
        EXPECT_EQ(records.Collect(u"Notes"), Value(QString::fromUtf8(text)));
        records.FindFirst(u"Surname = "_s + dao::writeText(QString::fromUtf8(text)));
        EXPECT_FALSE(records.NoMatch()) << text;
    }
}

TEST_F(RecordsetTest, ASingleIsWhatWasTyped) {
    appendTable(database, u"Marks"_s,
                {numberingField(), dao::TableDef::CreateField(u"S"_s, dao::DataType::Single)});
    const QStringList typed{u"0.1"_s, u"-2.7"_s, u"3.402823e+38"_s, u"16777217"_s, u"5"_s};
    for (const QString& each : typed)
        addRecord(database, u"Marks"_s, {each});
    database.Close();
    sqlite3* raw = nullptr; // another program, or a genuine Jet file, has the Single itself
    ASSERT_EQ(sqlite3_open(qPrintable(path(u"pupils.mdb"_s)), &raw), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(raw, "INSERT INTO Marks (S) VALUES (0.20000000298023224)", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(raw);
    database = engine.OpenDatabase(path(u"pupils.mdb"_s));
    const auto found = [this](const QString& condition) {
        return rowsOf(database, u"SELECT S FROM Marks WHERE "_s + condition).join(u' ');
    };
    EXPECT_EQ(found(u"S > -9"_s), u"0.1 -2.7 3.402823e+38 16777216 5 0.2"_s);
    for (const QString& each : {u"S = 0.1"_s, u"S IN (7, 0.1)"_s, u"S LIKE '0.1'"_s})
        EXPECT_EQ(found(each), u"0.1"_s) << each.toStdString();
    EXPECT_EQ(found(u"S = 0.2"_s), u"0.2"_s);
    EXPECT_EQ(found(u"S BETWEEN 0.1 AND 0.2"_s), u"0.1 0.2"_s);
}

TEST_F(RecordsetTest, ChangesOfAnotherHandleAreSeenOnTheNextVisit) {
    dao::Recordset here = database.OpenRecordset(u"Pupils"_s);
    dao::Recordset there = database.OpenRecordset(u"Pupils"_s);
    EXPECT_EQ(here.Collect(u"Surname").toText(), u"Adams"_s);
    there.Edit();
    there[u"Surname"] = u"Ames"_s;
    there.Update();
    here.Edit();
    EXPECT_EQ(here.Collect(u"Surname").toText(), u"Ames"_s) << "Edit reads the record again";
    here.CancelUpdate();
    there.Delete();
    here.MoveFirst();
    EXPECT_EQ(errorOf([&] { here.Collect(u"Surname"); }), dao::RecordDeleted);
    here.MoveNext();
    EXPECT_EQ(here.Collect(u"Surname").toText(), u"baker"_s);
}

TEST_F(RecordsetTest, AClosedOneRefusesAllWork) {
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    const dao::RecordsetField field = records[u"Surname"];
    EXPECT_EQ(database.Recordsets().size(), 1);
    database.Close();
    EXPECT_FALSE(records.isOpen());
    EXPECT_EQ(errorOf([&] { records.MoveFirst(); }), dao::ObjectInvalid);
    EXPECT_EQ(errorOf([&] { field.value(); }), dao::ObjectInvalid);
    EXPECT_EQ(errorOf([&] { database.OpenRecordset(u"Pupils"_s); }), dao::ObjectInvalid);
}
