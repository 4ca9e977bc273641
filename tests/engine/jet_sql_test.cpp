#include "store/engine/jet_sql.h"

#include "store/engine/error.h"
#include "support/engine_sqlite.h"

#include <gtest/gtest.h>

using namespace dao;

namespace {

TableStructure makeTable(const QString& name, const QList<std::pair<QString, DataType>>& fields) {
    TableStructure table;
    table.name = name;
    for (const auto& [fieldName, type] : fields) {
        Field field;
        field.Name = fieldName;
        field.Type = type;
        table.fields.append(field);
    }
    return table;
}

/// A class with its marks, a few sheets, a table of one row for expressions, one of odd names.
class JetSql : public testing::Test {
protected:
    JetSql() {
        constexpr DataType text = DataType::Text;
        constexpr DataType number = DataType::Double;
        m_sqlite.addTable(makeTable(u"Class_7A"_s, {{u"ID"_s, DataType::Long},
                                                    {u"Surname"_s, text},
                                                    {u"Firstname"_s, text},
                                                    {u"Tutor"_s, text},
                                                    {u"Photo"_s, DataType::LongBinary}}),
                          {u"1, 'Zeta', 'Ann', '7X', x'00'"_s,
                           u"2, 'O''Brien', 'Bob', NULL, NULL"_s,
                           u"3, '\u00c9mile', 'Cy', '7x', NULL"_s, u"4, 'emil', 'Di', '', NULL"_s,
                           u"5, 'Fay', 'Ed', '7Y', NULL"_s});
        m_sqlite.addTable(makeTable(u"Marks_7A"_s, {{u"ID"_s, DataType::Long},
                                                    {u"Test 1"_s, number},
                                                    {u"Note"_s, DataType::Memo}}),
                          {u"1, 10, 'a'"_s, u"2, NULL, 'B'"_s, u"3, 7.5, NULL"_s, u"4, 0, 'c'"_s});
        m_sqlite.addTable(makeTable(u"Planning"_s, {{u"PlanDate"_s, text},
                                                    {u"Week"_s, DataType::Integer},
                                                    {u"Class1"_s, text},
                                                    {u"Class2"_s, text}}),
                          {u"'24-09-05', 1, '7A', ''"_s, u"'24-09-04', 1, '9C', NULL"_s,
                           u"'24-09-11', 2, '', '7a'"_s});
        m_sqlite.addTable(makeTable(u"One"_s, {{u"N"_s, number},
                                               {u"T"_s, text},
                                               {u"NullN"_s, number},
                                               {u"NullT"_s, text},
                                               {u"B"_s, DataType::Boolean},
                                               {u"P"_s, DataType::LongBinary}}),
                          {u"5, 'Abc', NULL, NULL, -1, x'00'"_s});
        m_sqlite.addTable(makeTable(u"Class_7[A]"_s, {{u"a]b"_s, text},
                                                      {u"[x]"_s, text},
                                                      {u"01/09/24 1"_s, text},
                                                      {u"^_"_s, text},
                                                      {u"Order"_s, text},
                                                      {u"\u00c9l\u00e8ve"_s, text},
                                                      {u"say \"x\""_s, text}}),
                          {u"'1', '2', '3', '4', '5', '6', '7'"_s});
        m_sqlite.addTable(makeTable(u"Words"_s, {{u"Top"_s, text},
                                                 {u"Left"_s, text},
                                                 {u"Date"_s, text},
                                                 {u"Memo"_s, text},
                                                 {u"Year"_s, text},
                                                 {u"Notes"_s, text},
                                                 {u"Active"_s, text},
                                                 {u"rowid"_s, text}}),
                          {u"'t', 'l', 'd', 'm', 'y', 'n', 'Yes', 'r'"_s});
    }

    sql::Query translate(const QString& jetSql) const {
        return sql::translateSelect(jetSql, m_sqlite.finder());
    }
    QString rows(const QString& jetSql) const {
        try {
            return m_sqlite.select(jetSql).join(u';');
        } catch (const EngineError& error) {
            return u'!' + QString::number(error.number());
        }
    }
    /// The value of an expression over the table of one row.
    QString value(const QString& expression) const {
        return rows(u"SELECT %1 FROM One"_s.arg(expression));
    }
    QString names(const QString& jetSql) const {
        QStringList all;
        for (const sql::Column& column : translate(jetSql).columns)
            all.append(column.name);
        return all.join(u',');
    }

    BareSqlite m_sqlite;
};

struct Case {
    const char16_t* jetSql;
    const char16_t* expected;
};

template<size_t Count, typename Answer>
void expectCases(const Case (&cases)[Count], Answer answer) {
    for (const Case& each : cases) {
        const QString jetSql = QString::fromUtf16(each.jetSql);
        EXPECT_EQ(answer(jetSql).toStdString(), QString::fromUtf16(each.expected).toStdString())
            << qPrintable(jetSql);
    }
}

} // namespace

TEST_F(JetSql, LogicalOperatorsFollowJetsTablesOfNull) {
    // Down the left operand and along the right one: True, False, Null.
    const std::pair<QString, QString> operators[] = {
        {u"AND"_s, u"-1 0 ~ 0 0 0 ~ 0 ~"_s},     {u"OR"_s, u"-1 -1 -1 -1 0 ~ -1 ~ ~"_s},
        {u"XOR"_s, u"0 -1 ~ -1 0 ~ ~ ~ ~"_s},    {u"EQV"_s, u"-1 0 ~ 0 -1 ~ ~ ~ ~"_s},
        {u"IMP"_s, u"-1 0 ~ -1 -1 -1 -1 ~ ~"_s},
    };
    // The same three values as constants, comparisons and numbers taken as truth.
    const QStringList operands[] = {
        {u"True"_s, u"False"_s, u"Null"_s},
        {u"N = 5"_s, u"N > 5"_s, u"NullN = 5"_s},
        {u"B"_s, u"(N - 5)"_s, u"NullN"_s},
        {u"T Like 'a*'"_s, u"T Like 'b*'"_s, u"NullT Like 'a*'"_s},
    };
    for (const auto& [name, expected] : operators) {
        for (const QStringList& three : operands) {
            QStringList answers;
            for (const QString& left : three) {
                for (const QString& right : three)
                    answers.append(value(left + u' ' + name + u' ' + right));
            }
            EXPECT_EQ(answers.join(u' '), expected) << qPrintable(name + u' ' + three[0]);
        }
    }
}

TEST_F(JetSql, ComparisonsWithNullAnswerNull) {
    for (const QString& sign :
         {u"="_s, u"<>"_s, u"<"_s, u">"_s, u"<="_s, u">="_s, u"Like"_s, u"Not Like"_s, u"+"_s}) {
        for (const QString& pair :
             {u"NullN %1 5"_s, u"5 %1 NullN"_s, u"NullT %1 'a'"_s, u"'a' %1 NullT"_s,
              u"Null %1 'a'"_s, u"N %1 Null"_s, u"Null %1 Null"_s})
            EXPECT_EQ(value(pair.arg(sign)), u"~"_s) << qPrintable(pair.arg(sign));
    }
}

TEST_F(JetSql, ExpressionsAnswerAsInJet) {
    const Case cases[] = {
        // precedence
        {u"True OR False AND False", u"-1"},
        {u"NOT False AND False", u"0"},
        {u"NOT N = 6", u"-1"},
        {u"True XOR True OR True", u"0"},
        {u"True OR True XOR True", u"0"},
        {u"False EQV True XOR True", u"-1"},
        {u"False IMP False EQV True", u"-1"},
        {u"False IMP False IMP False", u"0"},
        {u"False AND True OR True", u"-1"},
        {u"(True OR False) AND False", u"0"},
        {u"1 + 2 * 3", u"7"},
        {u"(1 + 2) * 3", u"9"},
        {u"10 - 2 - 3", u"5"},
        {u"2 - (3 - 4)", u"3"},
        {u"12 / 2 / 3", u"2"},
        {u"12 / (4 / 2)", u"6"},
        {u"- 2 + 3", u"1"},
        {u"2 - - 3", u"5"},
        {u"-(-3)", u"3"},
        {u"1 + 1 & 2 + 3", u"25"},
        {u"1 < 2 = True", u"-1"},
        {u"3 > 2 > 1", u"0"}, // -1 > 1
        // numbers
        {u"7 / 2", u"3.5"},
        {u"1.5E3", u"1500"},
        {u".5 + 1.", u"1.5"},
        {u"007", u"7"},
        {u"1e-2", u"0.01"},
        {u"9223372036854775807", u"9223372036854775807"},
        {u"9223372036854775808 > 9223372036854775807", u"-1"},
        {u"True + True", u"-2"},
        {u"(N = 5) * 3", u"-3"},
        {u"True = -1", u"-1"},
        {u"True < False", u"-1"},
        {u"B = True", u"-1"},
        {u"N AND 2", u"-1"},
        // texts
        {u"'it''s'", u"it's"},
        {u"\"say \"\"it's\"\"\"", u"say \"it's\""},
        {u"T & NullT & 'x'", u"Abcx"},
        {u"NullT & NullN", u""},
        {u"N & True & .5", u"5-10.5"},
        {u"T + 'x'", u"Abcx"},
        {u"T + ('x' + T)", u"AbcxAbc"},
        {u"T & ('x' & T)", u"AbcxAbc"},
        {u"T = 'ABC'", u"-1"},
        {u"'\u00c9' = '\u00e9'", u"-1"},
        {u"'\u00c9' = 'E'", u"0"},
        {u"'E' < '\u00e9'", u"-1"},
        {u"'\u00e9' < 'f'", u"-1"},
        // Is Null, Between, In, Like
        {u"NullN Is Null", u"-1"},
        {u"N Is Null", u"0"},
        {u"N Is Not Null", u"-1"},
        {u"P Is Not Null", u"-1"},
        {u"(NullN = 1) Is Null", u"-1"},
        {u"N Between 1 And 5", u"-1"},
        {u"N Not Between 1 And 5 Or False", u"0"},
        {u"N Between 6 And 9 And True", u"0"},
        {u"T Between 'aBA' And 'ABD'", u"-1"},
        {u"NullN Between 1 And 5", u"~"},
        {u"N Between NullN And 9", u"~"},
        {u"N In (1, 2 + 3)", u"-1"},
        {u"N Not In (1, 2)", u"-1"},
        {u"N In (1, Null)", u"~"},
        {u"T In ('abc')", u"-1"},
        {u"T In ('x', 'aBC')", u"-1"},
        {u"NullT In ('x')", u"~"},
        {u"T Like 'A?C'", u"-1"},
        {u"T Not Like 'A?C'", u"0"},
        {u"T Like 'a' & '*'", u"-1"},
        {u"N Like '#'", u"-1"},
        {u"N Like 5", u"-1"},
        {u"N / 2 Like '2.*'", u"-1"},
        {u"True Like '-1'", u"-1"},
        // numbers compared as numbers, texts as texts
        {u"10 > 9", u"-1"},
        {u"'10' > '9'", u"0"},
    };
    expectCases(cases, [this](const QString& text) { return value(text); });
}

TEST_F(JetSql, SelectsAnswerTheirRows) {
    const Case cases[] = {
        {u"SELECT * FROM Planning ORDER BY PlanDate",
         u"24-09-04|1|9C|~;24-09-05|1|7A|;24-09-11|2||7a"},
        {u"select plandate from PLANNING where week = 1 order by PLANDATE desc;",
         u"24-09-05;24-09-04"},
        {u"SELECT PlanDate FROM Planning WHERE Week >= 2 ORDER BY PlanDate ; ", u"24-09-11"},
        {u"SELECT PlanDate FROM Planning WHERE Class1 = '7a' OR Class2 = '7A' ORDER BY PlanDate;",
         u"24-09-05;24-09-11"},
        {u"SELECT PlanDate FROM Planning WHERE PlanDate >= '24-09-05' AND  PlanDate <= '24-09-30' "
         u"AND (Class1 = '7A');",
         u"24-09-05"},
        {u"SELECT Surname,Firstname FROM Class_7A Order By Surname;",
         u"emil|Di;\u00c9mile|Cy;Fay|Ed;O'Brien|Bob;Zeta|Ann"},
        {u"SELECT Class_7A.Surname,Class_7A.Tutor,Marks_7A.* FROM Class_7A INNER JOIN Marks_7A ON "
         u"Class_7A.ID = Marks_7A.ID Order By Class_7A.Tutor ASC, Marks_7A.[Test 1] DESC;",
         u"O'Brien|~|2|~|B;emil||4|0|c;Zeta|7X|1|10|a;\u00c9mile|7x|3|7.5|~"},
        {u"SELECT Surname FROM Class_7A INNER JOIN Marks_7A ON Class_7A.ID = Marks_7A.ID WHERE "
         u"[Test 1] < 8 OR [Note] Like 'b' ORDER BY Surname",
         u"emil;\u00c9mile;O'Brien"},
        {u"SELECT Surname FROM Class_7A WHERE [Tutor] Like '7x' XOR [ID] > 1 ORDER BY ID",
         u"Zeta;emil;Fay"},
        {u"SELECT ID,Photo FROM Class_7A WHERE ID = 2 ;", u"2|~"},
        {u"SELECT * FROM Planning WHERE Week < 0;", u""},
        {u"SELECT c!Surname FROM Class_7A AS c, Marks_7A AS m WHERE c.ID = m.ID AND m.Note = 'C'",
         u"emil"},
        {u"SELECT p.Week, c.ID FROM (Class_7A AS c INNER JOIN Marks_7A AS m ON c.ID = m.ID) INNER "
         u"JOIN Planning AS p ON m.ID = p.Week WHERE p.PlanDate = '24-09-11'",
         u"2|2"},
        {u"SELECT c.ID FROM ((Class_7A AS c INNER JOIN Marks_7A ON (c.ID = Marks_7A.ID)) INNER "
         u"JOIN "
         u"Planning ON c.ID = Week), One WHERE N = 5 ORDER BY 1 DESC",
         u"2;1;1"},
        {u"SELECT ID, ID * 2 FROM Class_7A ORDER BY 2 DESC, 1", u"5|10;4|8;3|6;2|4;1|2"},
        {u"SELECT Surname FROM Class_7A ORDER BY ID > 3, Surname DESC",
         u"Fay;emil;Zeta;O'Brien;\u00c9mile"},
        {u"SELECT 9, ID FROM Class_7A WHERE ID < 3 ORDER BY 1, -9, 2 + 7, Null, 'x', True, ID DESC",
         u"9|2;9|1"},
        {u"SELECT[Surname]FROM[Class_7A]WHERE[ID]=1", u"Zeta"},
        {u"SELECT Surname\r\n\tFROM Class_7A\nWHERE Firstname=\"bob\"", u"O'Brien"},
        {u"SELECT * FROM [class_7[a]]]", u"1|2|3|4|5|6|7"},
        {u"SELECT [a]]b], [[x]]], [01/09/24 1], [^_], [order], \u00e9L\u00c8ve, [say \"x\"] FROM "
         u"[Class_7[A]]]",
         u"1|2|3|4|5|6|7"},
        {u"SELECT [Class_7[A]]].[a]]b] FROM [Class_7[A]]] WHERE [Class_7[A]]]![a]]b] = '1'", u"1"},
        {u"SELECT Top, Left, Date, Memo, Year, Notes, Words.rowid FROM Words WHERE Active = 'yes' "
         u"ORDER BY Date DESC",
         u"t|l|d|m|y|n|r"},
    };
    expectCases(cases, [this](const QString& text) { return rows(text); });
}

TEST_F(JetSql, ColumnsBearTheirNames) {
    const Case cases[] = {
        {u"SELECT surname, ID AS Number FROM Class_7A", u"Surname,Number"},
        {u"SELECT 1, Surname, 2 AS two, ID + 1 FROM Class_7A", u"Expr1000,Surname,two,Expr1001"},
        {u"SELECT Surname, Marks_7A.* FROM Class_7A, Marks_7A", u"Surname,ID,Test 1,Note"},
        {u"SELECT Class_7A.ID, Marks_7A.*, m.ID AS ID FROM Class_7A, Marks_7A, Marks_7A AS m",
         u"Class_7A.ID,Marks_7A.ID,Test 1,Note,m.ID"},
        {u"SELECT Surname, * FROM Class_7A", u"Surname,ID,Surname,Firstname,Tutor,Photo"},
    };
    expectCases(cases, [this](const QString& text) { return names(text); });
}

TEST_F(JetSql, ColumnsLeadBackToTheirFields) {
    const sql::Query query =
        translate(u"SELECT m.[Test 1] AS Mark, Surname, ID2 & '' AS x, c.ID = 1 FROM "
                  "Class_7A AS c, Marks_7A "
                  "AS m WHERE c.ID = m.ID"_s.replace(u"ID2"_s, u"m.ID"_s));
    ASSERT_EQ(query.sources.size(), 2);
    EXPECT_EQ(query.sources[0].alias, u"c"_s);
    EXPECT_EQ(query.sources[0].table->name, u"Class_7A"_s);
    ASSERT_EQ(query.columns.size(), 4);
    EXPECT_EQ(query.columns[0].source, 1);
    EXPECT_EQ(query.columns[0].field.Name, u"Test 1"_s);
    EXPECT_EQ(query.columns[1].source, 0);
    EXPECT_EQ(query.columns[2].source, -1);
    EXPECT_EQ(query.columns[2].field.Type, DataType::Memo);
    EXPECT_TRUE(query.columns[2].field.Name.isEmpty());
    EXPECT_EQ(query.columns[3].field.Type, DataType::Boolean);

    EXPECT_EQ(m_sqlite.run(BareSqlite::statement(sql::tableQuery(m_sqlite.finder()(u"marks_7a")))),
              m_sqlite.select(u"SELECT * FROM Marks_7A"_s));
}

TEST_F(JetSql, RefusesWithTheNumberThatFits) {
    const Case cases[] = {
        {u"SELECT Nothing FROM Class_7A", u"!3061"},
        {u"SELECT x.Surname FROM Class_7A", u"!3061"},
        {u"SELECT x.* FROM Class_7A", u"!3061"},
        {u"SELECT Class_7A.ID FROM Class_7A AS c", u"!3061"},
        {u"SELECT * FROM Class_7A WHERE Surname = Smith", u"!3061"},
        {u"SELECT * FROM Class_7A WHERE rowid = 1", u"!3061"},
        {u"SELECT * FROM Class_7A ORDER BY oid", u"!3061"},
        {u"SELECT Surname AS s FROM Class_7A ORDER BY s", u"!3061"},
        {u"SELECT ID FROM Class_7A, Marks_7A", u"!3079"},
        {u"SELECT Surname FROM Class_7A, Marks_7A WHERE [ID] = 5", u"!3079"},
        {u"SELECT N FROM (Class_7A AS a INNER JOIN Marks_7A AS b ON a.ID = N), One", u"!3061"},
        {u"SELECT * FROM Missing", u"!3078"},
        {u"SELECT * FROM sqlite_master", u"!3078"},
        {u"SELECT * FROM Class_7A WHERE ID = '1'", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE 1 = Surname", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE Surname = True", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE Surname", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE NOT 'a'", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE ID = 1 AND Photo", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE Photo = 'a'", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE Photo Like 'a'", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE ID Between 1 And 'b'", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE Surname In ('a', 1)", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE Null In ('a', 1)", u"!3464"},
        {u"SELECT Surname + 1 FROM Class_7A", u"!3464"},
        {u"SELECT -Surname FROM Class_7A", u"!3464"},
        {u"SELECT Surname * 2 FROM Class_7A", u"!3464"},
        {u"SELECT * FROM Class_7A WHERE Surname Like '[a'", u"!3075"},
        {u"", u"!3075"},
        {u"SELECT", u"!3075"},
        {u"SELECT FROM Class_7A", u"!3075"},
        {u"SELECT *", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID = 1 [ID] = 2;", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE Surname = 'O'Brien'", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE Surname = 'O", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE [ID = 1", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE [] = 1", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE (ID = 1", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID = 1)", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID IS 1", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID NOT 1", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID IN ()", u"!3075"},
        {u"SELECT * FROM Class_7A ORDER BY", u"!3075"},
        {u"SELECT ID FROM Class_7A ORDER BY 0", u"!3075"},
        {u"SELECT ID FROM Class_7A ORDER BY 2", u"!3075"},
        {u"SELECT * FROM Class_7A, Class_7A", u"!3075"},
        {u"SELECT Class_7A.Surname.x FROM Class_7A", u"!3075"},
        {u"SELECT 1x FROM Class_7A", u"!3075"},
        {u"SELECT 0x10 FROM Class_7A", u"!3075"},
        {u"SELECT 1e FROM Class_7A", u"!3075"},
        {u"SELECT 1e999 FROM Class_7A", u"!3075"},
        {u"SELECT 1.2.3 FROM Class_7A", u"!3075"},
        // of Jet's language, but not of ours
        {u"SELECT DISTINCT Surname FROM Class_7A", u"!3075"},
        {u"SELECT TOP 1 * FROM Class_7A", u"!3075"},
        {u"SELECT Count(*) FROM Class_7A", u"!3075"},
        {u"SELECT UCase(Surname) FROM Class_7A", u"!3075"},
        {u"SELECT ID FROM Class_7A GROUP BY ID", u"!3075"},
        {u"SELECT * FROM Class_7A LEFT JOIN Marks_7A ON Class_7A.ID = Marks_7A.ID", u"!3075"},
        {u"SELECT ID FROM Class_7A UNION SELECT ID FROM Marks_7A", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID IN (SELECT ID FROM Marks_7A)", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE Surname > #1/1/2024#", u"!3075"},
        {u"DELETE FROM Class_7A", u"!3075"},
        // SQLite's own
        {u"SELECT * FROM Class_7A WHERE ID == 1", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID != 1", u"!3075"},
        {u"SELECT Surname || 'x' FROM Class_7A", u"!3075"},
        {u"SELECT 1 << 2 FROM Class_7A", u"!3075"},
        {u"SELECT 5 % 2 FROM Class_7A", u"!3075"},
        {u"SELECT ~ 2 FROM Class_7A", u"!3075"},
        {u"SELECT + 2 FROM Class_7A", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE Surname LIKE 'a' ESCAPE 'b'", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE Surname GLOB 'a'", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE Surname REGEXP 'a'", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE Surname = 'a' COLLATE BINARY", u"!3075"},
        {u"SELECT * FROM Class_7A LIMIT 1", u"!3075"},
        {u"SELECT * FROM Class_7A NATURAL JOIN Marks_7A", u"!3075"},
        {u"SELECT * FROM Class_7A -- all", u"!3075"},
        {u"SELECT 2 --3 FROM Class_7A", u"!3075"},
        {u"SELECT /* all */ * FROM Class_7A", u"!3075"},
        {u"SELECT * FROM Class_7A; SELECT 1", u"!3075"},
        {u"SELECT * FROM Class_7A;;", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID = ?", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID = :id", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID = @id", u"!3075"},
        {u"SELECT * FROM Class_7A WHERE ID = $id", u"!3075"},
        {u"SELECT `ID` FROM Class_7A", u"!3075"},
        {u"SELECT x'41' FROM Class_7A", u"!3075"},
        {u"SELECT CASE WHEN 1 THEN 2 END FROM Class_7A", u"!3075"},
        {u"PRAGMA table_info(Class_7A)", u"!3075"},
    };
    expectCases(cases, [this](const QString& text) { return rows(text); });
    EXPECT_EQ(rows(u"SELECT * FROM Class_7A WHERE Surname = 'a%1'"_s.arg(QChar(0))), u"!3075"_s);
}

TEST_F(JetSql, ErrorsKeepThePupilsNameToThemselves) {
    for (const QString& jetSql : {u"SELECT * FROM Class_7A WHERE Surname = 'O'Brien'"_s,
                                  u"SELECT * FROM Class_7A WHERE Surname = OBrien"_s,
                                  u"SELECT * FROM Class_7A WHERE ID = 'OBrien'"_s,
                                  u"SELECT * FROM Class_7A WHERE Surname Like '[Brien'"_s}) {
        try {
            translate(jetSql);
            ADD_FAILURE() << qPrintable(jetSql);
        } catch (const EngineError& error) {
            EXPECT_FALSE(error.description().contains(u"Brien"_s));
        }
    }
}

TEST_F(JetSql, LongTextsPassAndEndlessOnesAreRefused) {
    const auto repeated = [](const QString& part, int count, const QString& rest) {
        return u"SELECT ID FROM Class_7A WHERE "_s + part.repeated(count) + rest;
    };
    // Thirty pupils picked in the name list, and many more; chains of everything else.
    const QString pupil = u"Surname = 'Zeta' AND Firstname = 'Bob' OR "_s;
    const QString one = u"ID = 1"_s;
    for (const QString& jetSql :
         {repeated(pupil, 30, one), repeated(pupil, 600, one),
          repeated(u"ID > 0 AND "_s, 2500, one), repeated(u"False XOR "_s, 150, one),
          repeated(u"0 + "_s, 150, one), repeated(u"'' & "_s, 150, u"Surname = 'zeta'"_s),
          repeated(u"("_s, 90, one + QString(90, u')')), repeated(u"NOT NOT "_s, 10, one)})
        EXPECT_EQ(rows(jetSql), u"1"_s) << qPrintable(jetSql.left(80));
    for (const QString& jetSql : {repeated(u"("_s, 20000, one), repeated(u"NOT "_s, 8000, one),
                                  repeated(u"- "_s, 16000, one), repeated(u"1+"_s, 16000, one),
                                  repeated(u"1 IN (1, "_s, 3000, one), repeated(pupil, 5000, one),
                                  repeated(u"1 = (2 + "_s, 90, u"1"_s + QString(90, u')')),
                                  u"SELECT 1 FROM "_s + QString(20000, u'('),
                                  u"SELECT * FROM "_s + u"One, "_s.repeated(5000)})
        EXPECT_EQ(rows(jetSql), u"!3075"_s) << qPrintable(jetSql.left(80));
}

TEST_F(JetSql, ConditionsAndOrdersResolveTheirFieldsThroughTheCaller) {
    const sql::ResolveField resolve = [](const QString& qualifier, const QString& name,
                                         sql::FieldSql& out) {
        out = {u"t0.\"Surname\""_s, DataType::Text};
        return qualifier.isEmpty() && sameName(name, u"who");
    };
    sql::Query query = sql::tableQuery(m_sqlite.finder()(u"Class_7A"));
    query.columns.resize(1);
    query.where = sql::translateCondition(u"Who Like '*e*' AND [WHO] <> 'fay'"_s, resolve);
    query.orderBy = sql::translateOrder(u"who DESC"_s, resolve);
    EXPECT_EQ(m_sqlite.run(BareSqlite::statement(query)).join(u','), u"1,2,3,4"_s);

    for (const QString& text : {u"x.who = 'a'"_s, u"which = 'a'"_s})
        EXPECT_THROW(sql::translateCondition(text, resolve), EngineError);
    for (const QString& text :
         {QString(), u"who = 'a';"_s, u"who = 'a' ORDER BY who"_s, u"WHERE who = 'a'"_s, u"who"_s})
        EXPECT_THROW(sql::translateCondition(text, resolve), EngineError) << qPrintable(text);
    for (const QString& text : {u"1"_s, u"who UP"_s, u"who,"_s})
        EXPECT_THROW(sql::translateOrder(text, resolve), EngineError) << qPrintable(text);
}

TEST_F(JetSql, TellsStatementsFromTableNames) {
    for (const QString& text : {u"SELECT * FROM x"_s, u" select\n1"_s, u"SELECT*"_s,
                                u"SELECT[a] FROM b"_s, u"DELETE FROM x"_s, u"Pragma x"_s})
        EXPECT_TRUE(sql::looksLikeStatement(text)) << qPrintable(text);
    for (const QString& text : {QString(), u"Select"_s, u"SELECT "_s, u"Selection x"_s,
                                u"Planning"_s, u"Post-It"_s, u"Update_log"_s})
        EXPECT_FALSE(sql::looksLikeStatement(text)) << qPrintable(text);
}

TEST_F(JetSql, RowNumbersGoByANameThatNoFieldTakes) {
    sql::Source source = translate(u"SELECT Top FROM Words"_s).sources.first();
    const QStringList rows =
        m_sqlite.run(u"SELECT %1 FROM Words AS t0"_s.arg(sql::rowNumber(source)));
    EXPECT_EQ(rows, QStringList{u"1"_s});
}
