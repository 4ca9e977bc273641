// The rules of the grades: columns of the teacher's own, their layout, and queries over them.

#include "classes/class_desk.h"
#include "classes/class_views.h"
#include "classes/grade_clipboard.h"
#include "classes/grade_columns.h"
#include "classes/grade_layout.h"
#include "classes/sort_query.h"
#include "core/session.h"
#include "core/settings.h"
#include "support/class_file.h"

namespace {

/// A class whose code is as awkward as codes get, with four pupils, taught twice on Monday, 2
/// September 2024.
class GradesTest : public testing::Test {
protected:
    GradesTest() : file(answers()), database(file.open()) {
        addPupils(database, code, {u"Ames,Ann"_s, u"O'Brien,Zoë"_s, u"Cole,Ed"_s, u"Cole,Ed"_s});
    }

    static YearAnswers answers() {
        YearAnswers answers = oneWeekAnswers();
        answers.terms = {{QDate(2024, 9, 2), QDate(2024, 9, 20)}};
        const QString code = u"A]^_["_s;
        answers.classes = {code};
        answers.colours.clear();
        answers.weekA = {QStringList{{}, code, code}, {}, {}, {}, {}};
        return answers;
    }

    NewField field(const QString& name, dao::DataType type = dao::DataType::Text, int size = 50,
                   QDate date = {}) {
        return {name, type, size, date};
    }
    bool add(const NewField& column, const QString& refusal = {}) {
        if (!refusal.isEmpty())
            seams.prompts.expect(PromptKind::Plain, refusal, AnswerOk);
        return addGradeColumn(database, code, column, seams.prompts);
    }
    QStringList titles() {
        QStringList names;
        for (const dao::Field& each : database.TableDefs()[marksTable(code)].Fields())
            names += each.Name;
        return names;
    }
    void put(const QString& table, int pupil, const QString& column, const dao::Value& value) {
        changeRecord(database,
                     u"SELECT * FROM %1 WHERE ID = %2"_s.arg(dao::writeName(table)).arg(pupil),
                     column, value);
    }
    QStringList grades(const QString& column) {
        return rowsOf(database, u"SELECT %1 FROM %2 ORDER BY ID"_s.arg(
                                    dao::writeName(column), dao::writeName(marksTable(code))));
    }
    PupilSheet sheet() { return PupilSheet(database, gradesSource(code, {})); }
    QString query() { return gradesSource(code, {}); }
    /// The `ID` of the pupils that a condition on one field picks, as the panel builds it.
    QString picked(const QString& name, const QString& comparison, const QString& value,
                   const QString& built = {}, const QString& logical = {}) {
        const QList<QueryField> fields = queryFields(database, code);
        const auto found = std::find_if(fields.begin(), fields.end(),
                                        [&](const auto& each) { return each.name == name; });
        last = *Built_SQL(built, query(), {*found, comparison, value, logical}, seams.prompts);
        QStringList ids;
        const PupilSheet records(database, last);
        for (int row = 0; row < records.rowCount(); ++row)
            ids += QString::number(records.pupil(row));
        return ids.join(u' ');
    }

    const QString code = u"A]^_["_s;
    TestSeams seams;
    YearFile file;
    dao::Database database;
    QString last; ///< the query built last
};

} // namespace

TEST_F(GradesTest, ColumnsOfEveryTypeAndTheirRefusals) {
    for (const NewFieldType& each : newFieldTypes())
        EXPECT_TRUE(add(field(each.caption.section(u' ', 0, 0), each.type)));
    EXPECT_EQ(titles(), (QStringList{u"ID"_s, u"Double:"_s, u"Text"_s, u"Memo"_s, u"Byte"_s,
                                     u"Integer"_s, u"Long"_s, u"Single"_s}));
    EXPECT_FALSE(add(field(u"TEXT"_s), u"Grade Error"_s));
    EXPECT_FALSE(add(field(u" x"_s), u"Invalid Characters"_s));
    EXPECT_FALSE(add(field(QString(65, u'x')), u"Invalid Characters"_s));
    put(marksTable(code), 1, u"Text"_s, QString()); // an empty text is no fault
    put(marksTable(code), 1, u"Memo"_s, u"007"_s);
    EXPECT_EQ(grades(u"Memo"_s).first(), u"007"_s);
    const PupilSheet open = sheet();
    EXPECT_FALSE(add(field(u"late"_s), u"Grade Error"_s)); // 3211, the table is in use
}

TEST_F(GradesTest, PupilsWhoWereAwayAreMarkedSo) {
    const QDate monday(2024, 9, 2);
    put(registerTable(code), 1, u"02/09/24 1"_s, u"O"_s);
    put(registerTable(code), 2, u"02/09/24 2"_s, u"O"_s); // only the first lesson counts
    put(registerTable(code), 3, u"02/09/24 1"_s, u"/"_s);
    add(field(u"text"_s, dao::DataType::Text, 50, monday));
    add(field(u"memo"_s, dao::DataType::Memo, 255, monday));
    add(field(u"number"_s, dao::DataType::Long, 255, monday));
    add(field(u"short"_s, dao::DataType::Text, 2, monday));
    add(field(u"other day"_s, dao::DataType::Text, 50, monday.addDays(1)));
    const QString none = u"~"_s;
    EXPECT_EQ(grades(u"text"_s), (QStringList{u"ABS"_s, none, none, none}));
    EXPECT_EQ(grades(u"memo"_s), (QStringList{u"ABS"_s, none, none, none}));
    for (const QString& column : {u"number"_s, u"short"_s, u"other day"_s})
        EXPECT_EQ(grades(column), QStringList(4, none)) << column.toStdString();
}

TEST_F(GradesTest, ColumnsMoveAndAreRenamedWithinTheirBounds) {
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s})
        add(field(name));
    put(marksTable(code), 1, u"b"_s, u"kept"_s);
    EXPECT_FALSE(MoveColumn(database, code, u"a"_s, MoveDirection::Left)); // ID stays first
    EXPECT_FALSE(MoveColumn(database, code, u"c"_s, MoveDirection::Right));
    EXPECT_FALSE(MoveColumn(database, code, u"Tutor"_s, MoveDirection::Right));
    EXPECT_TRUE(MoveColumn(database, code, u"b"_s, *moveDirection(u"left"_s)));
    EXPECT_TRUE(MoveColumn(database, code, u"a"_s, *moveDirection(u"RIGHT"_s)));
    EXPECT_EQ(titles().join(u""_s), u"IDbca"_s);
    EXPECT_FALSE(MoveColumn(database, code, u"c"_s, MoveDirection::Left, {u"b"_s}));
    EXPECT_TRUE(MoveColumn(database, code, u"b"_s, MoveDirection::Right, {u"c"_s}));
    EXPECT_TRUE(MoveColumn(database, code, u"b"_s, MoveDirection::Left, {u"c"_s}));
    EXPECT_EQ(titles().join(u""_s), u"IDcba"_s); // past what nobody sees
    EXPECT_TRUE(MoveColumn(database, code, u"b"_s, MoveDirection::Left));
    EXPECT_FALSE(renameGradeColumn(database, code, u"b"_s, u"C"_s)); // taken
    EXPECT_FALSE(renameGradeColumn(database, code, u"b"_s, u"x.y"_s));
    EXPECT_TRUE(renameGradeColumn(database, code, u"b"_s, u"Test: [1]; half"_s));
    EXPECT_EQ(grades(u"Test: [1]; half"_s).first(), u"kept"_s);
    removeGradeColumns(database, code, {u"c"_s, u"a"_s}, seams.prompts);
    EXPECT_EQ(titles().size(), 2);
    seams.prompts.expect(PromptKind::Plain, u"Grade Error"_s, AnswerOk);
    removeGradeColumns(database, code, {u"Test: [1]; half"_s, u"gone"_s}, seams.prompts);
    EXPECT_EQ(titles().size(), 2); // all or none
}

TEST_F(GradesTest, NumbersAreReadAsTheyAreWritten) {
    const QLocale german(QLocale::German);
    EXPECT_EQ(gradeValue(u"2,5"_s, dao::DataType::Double, german), dao::Value(u"2.5"_s));
    EXPECT_EQ(gradeValue(u"2,5"_s, dao::DataType::Text, german), dao::Value(u"2,5"_s));
    EXPECT_EQ(gradeValue(u"2,5"_s, dao::DataType::Double, QLocale::c()), dao::Value(u"2,5"_s));
    EXPECT_TRUE(gradeValue({}, dao::DataType::Long, german).isNull());
    EXPECT_FALSE(gradeValue({}, dao::DataType::Memo, german).isNull());
}

TEST_F(GradesTest, WhatCanBeDoneToASelection) {
    struct {
        QList<int> selected;
        ColumnCommands can; // remove, rename, moveLeft, moveRight, hide, importInto
    } const cases[] = {
        {{}, {}},
        {{2}, {false, false, true, true, false, true}},
        {{4}, {true, true, false, true, true, true}},
        {{5}, {true, true, true, true, true, true}},
        {{7}, {true, true, true, false, true, true}},
        {{4, 5}, {true, false, false, false, true, false}},
        {{2, 4}, {true, false, false, false, true, false}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(gradeColumnCommands(each.selected, {4, 5, 7}), each.can);
    seams.prompts.expect(PromptKind::Plain, u"Remove Grades"_s, AnswerYes);
    EXPECT_EQ(askRemoveColumns({u"Tutor"_s, u"a"_s, u"b"_s}, seams.prompts),
              (QStringList{u"b"_s, u"a"_s}));
    EXPECT_TRUE(seams.prompts.last().text.endsWith(u"column(s) : b, a"_s));
    seams.prompts.expect(PromptKind::Plain, u"Remove Grades"_s, AnswerOk);
    EXPECT_TRUE(askRemoveColumns({u"Tutor"_s}, seams.prompts).isEmpty());
}

TEST_F(GradesTest, TheLayoutIsKeptWithoutWhatIsGone) {
    const QTemporaryDir folder;
    Settings settings(folder.filePath(u"settings.ini"_s));
    EXPECT_EQ(loadRowHeight(settings, code, LayoutKind::Grades), 225);
    EXPECT_EQ(saveRowHeight(settings, code, LayoutKind::Grades, 100), 225);
    EXPECT_EQ(saveRowHeight(settings, code, LayoutKind::Notes, 600), 600);
    saveColumns(settings, code, {{u"old"_s, 900, true}});
    saveColumns(settings, code,
                {{u"Surname"_s, 1, true}, {u"Tutor"_s, 500, false}, {u"a"_s, 750, true}});
    const QList<ColumnLayout> columns =
        loadColumns(settings, code, {u"Surname"_s, u"Tutor"_s, u"a"_s, u"old"_s});
    EXPECT_EQ(columns[0].width, 0);
    EXPECT_FALSE(columns[0].isHidden);
    EXPECT_EQ(columns[1].width, 500);
    EXPECT_EQ(columns[2].width, 750);
    EXPECT_TRUE(columns[2].isHidden);
    EXPECT_EQ(columns[3].width, 0);
    EXPECT_FALSE(columns[3].isHidden);
    EXPECT_EQ(loadRowHeight(settings, code, LayoutKind::Notes), 600);
    EXPECT_EQ(loadRowHeight(settings, u"other"_s, LayoutKind::Notes), 225);
}

TEST_F(GradesTest, CopiesWhatIsVisible) {
    add(field(u"a"_s));
    add(field(u"b"_s, dao::DataType::Long));
    put(marksTable(code), 1, u"b"_s, 7);
    const PupilSheet all = sheet();
    EXPECT_EQ(studentNames(all).section(u"\r\n"_s, 0, 0), u"Ann Ames"_s);
    const auto but = [](QList<int> hidden) {
        return [hidden](int column) {
            return column != PupilSheet::IdColumn && !hidden.contains(column);
        };
    };
    EXPECT_EQ(allData(all, but({})).section(u"\r\n"_s, 0, 1),
              u"Surname\tFirstname\tTutor\ta\tb\r\nAmes\tAnn\t\t\t7"_s);
    EXPECT_FALSE(allData(all, but({5})).contains(u"\r\n"_s)); // one long line
    EXPECT_TRUE(allData(all, but({0, 1, 2})).startsWith(u"Surname\tFirstname\ta"_s));
}

TEST_F(GradesTest, TablesGoOutAndComeBack) {
    struct {
        QString text;
        QList<QStringList> table;
    } const cases[] = {
        {u""_s, {}},
        {u"1\r\n\r\n3\r\n"_s, {{u"1"_s}, {u""_s}, {u"3"_s}}},
        {u"a\tb\n\tc"_s, {{u"a"_s, u"b"_s}, {u""_s, u"c"_s}}},
        {u"\"two\nlines\"\t\"say \"\"hi\"\"\"\n"_s, {{u"two\nlines"_s, u"say \"hi\""_s}}},
        {u"\"open\tend\""_s, {{u"open\tend"_s}}},
        {u"\"never closed\n2"_s, {{u"\"never closed"_s}, {u"2"_s}}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(readTable(each.text), each.table) << each.text.toStdString();
    add(field(u"a"_s));
    add(field(u"b"_s, dao::DataType::Single));
    PupilSheetModel model;
    model.setSheet(sheet());
    const auto paste = [&](int row, const QString& text, const QString& refusal = {}) {
        if (!refusal.isEmpty())
            seams.prompts.expect(PromptKind::Plain, refusal, AnswerOk);
        pasteGrades(model, row, {4, 5}, readTable(text), QLocale(QLocale::German), seams.prompts);
    };
    const QString copied = u"\"two\nlines\"\t0.1\r\nx\t2.5\r\n"_s;
    paste(1, QString(copied).replace(u'.', u','));
    EXPECT_EQ(cellsText(model.sheet(), {1, 2}, {4, 5}), copied);
    EXPECT_EQ(picked(u"b"_s, u"="_s, u"0.1"_s), QString::number(model.sheet().pupil(1)));
    paste(3, copied, u"Paste"_s);                              // a pupil too many
    paste(0, u"1\t2\t3"_s, u"Paste"_s);                        // a column too many
    paste(0, u"new\t1\nnew\tmany"_s, u"After Update Error"_s); // all or nothing
    EXPECT_EQ(model.sheet().text(0, 4), QString());
}

TEST_F(GradesTest, QueriesPickAsTheEngineUnderstandsThem) {
    add(field(u"Notes"_s, dao::DataType::Memo)); // the pupils have such a field as well
    put(marksTable(code), 2, u"Notes"_s, u"late"_s);
    EXPECT_EQ(picked(u"Notes"_s, u"Like"_s, u"la*"_s), u"2"_s);
    add(field(u"Test 1"_s, dao::DataType::Long));
    add(field(u"half"_s, dao::DataType::Double));
    add(field(u"Remark"_s));
    put(marksTable(code), 1, u"Test 1"_s, 9);
    put(marksTable(code), 2, u"Test 1"_s, 12);
    put(marksTable(code), 3, u"Test 1"_s, 30);
    put(marksTable(code), 1, u"half"_s, 2.5);
    put(marksTable(code), 1, u"Remark"_s, u"Good"_s);
    put(marksTable(code), 3, u"Remark"_s, u"GOOD work"_s);
    EXPECT_EQ(picked(u"Test 1"_s, u"<"_s, u"10"_s), u"1"_s);
    EXPECT_EQ(picked(u"Test 1"_s, u">"_s, u"9x"_s), u"2 3"_s); // numbers; Null fits nothing
    EXPECT_EQ(picked(u"half"_s, u"="_s, u"2.5"_s), u"1"_s);
    EXPECT_EQ(picked(u"half"_s, u"<"_s, u"1e1 marks"_s), u"1"_s);
    EXPECT_EQ(picked(u"Remark"_s, u"="_s, u"good"_s), u"1"_s);
    EXPECT_EQ(picked(u"Remark"_s, u"Like"_s, u"g*"_s), u"1 3"_s);
    EXPECT_EQ(picked(u"Surname"_s, u"<>"_s, u"Cole"_s), u"1 2"_s);
    const QString first = (picked(u"Test 1"_s, u">"_s, u"10"_s), last);
    EXPECT_TRUE(first.endsWith(u" WHERE [Test 1] > 10;"_s)) << first.toStdString();
    EXPECT_EQ(picked(u"Remark"_s, u"Like"_s, u"*work"_s, first, u"AND"_s), u"3"_s);
    EXPECT_EQ(picked(u"Remark"_s, u"Like"_s, u"*work"_s, first, u"OR"_s), u"2 3"_s);
    EXPECT_EQ(picked(u"Surname"_s, u"="_s, u"Cole"_s, first, u"XOR"_s), u"2"_s);
    EXPECT_EQ(picked(u"Surname"_s, u"="_s, u"Cole"_s, first, u"EQV"_s), u"1 3"_s);
    EXPECT_EQ(picked(u"Surname"_s, u"="_s, u"Cole"_s, first, u"IMP"_s), u"1 3 4"_s);
    struct {
        QString query;
        QString title;
    } const refused[] = {
        {{}, u"No Query!"_s},
        {query().replace(u" order"_s, u" WHERE [Test 1] > 99 order"_s), u"No Records"_s},
        {query().replace(u" order"_s, u" WHERE [Surname] = 'O'Brien' order"_s), u"Query"_s},
        {QString(first).replace(u';', u"  [Remark] = 'x';"_s), u"Query"_s}, // no operator
        {u"SELECT [gone] FROM Classcodes"_s, u"Query"_s},
    };
    for (const auto& each : refused) {
        seams.prompts.expect(PromptKind::Plain, each.title, AnswerOk);
        EXPECT_FALSE(checkQuery(database, each.query, seams.prompts));
    }
    EXPECT_TRUE(checkQuery(database, first, seams.prompts));
    const QueryField surname{u"Surname"_s};
    for (const QueryCondition& each : {QueryCondition{std::nullopt, u"="_s, u"x"_s, {}},
                                       {surname, {}, u"x"_s, {}},
                                       {surname, u"="_s, {}, {}}}) {
        seams.prompts.expect(PromptKind::Plain, u"Missing Information"_s, AnswerOk);
        EXPECT_FALSE(Built_SQL({}, query(), each, seams.prompts));
    }
    EXPECT_EQ(fieldValues(sheet(), u"Surname"_s),
              (QStringList{u"Ames"_s, u"Cole"_s, u"O'Brien"_s}));
}

TEST_F(GradesTest, SortingKeepsTheCondition) {
    add(field(u"Test 1"_s, dao::DataType::Long));
    put(marksTable(code), 3, u"Test 1"_s, 5);
    const QList<QueryField> fields = queryFields(database, code);
    const QString filtered = gradesSource(code, u" WHERE Surname = 'Cole'"_s);
    const QString sorted =
        *sortedQuery(filtered, code, fields, {{3, true}, {}, {0, false}}, seams.prompts);
    EXPECT_TRUE(
        sorted.endsWith(u"order by [Marks_A]]^_[].[Test 1] DESC, [Class_A]]^_[].Surname ASC;"_s))
        << sorted.toStdString();
    const PupilSheet records(database, sorted);
    EXPECT_EQ(records.rowCount(), 2);
    EXPECT_EQ(records.pupil(0), 3);
    EXPECT_EQ(sortedQuery(sorted, code, fields, {{1, false}}, seams.prompts)->count(u"order by"_s),
              1);
    seams.prompts.expect(PromptKind::Plain, u"Nothing to Sort"_s, AnswerOk);
    EXPECT_FALSE(sortedQuery(filtered, code, fields, {{}, {}, {}}, seams.prompts));
}

TEST_F(GradesTest, KeysThatCanBeTyped) {
    const std::optional<QueryField> number(QueryField{u"n"_s, dao::DataType::Single});
    const std::optional<QueryField> real(QueryField{u"d"_s, dao::DataType::Double});
    EXPECT_TRUE(checkValueKey(number, u'7', seams.prompts));
    EXPECT_TRUE(checkValueKey(number, u'T', seams.prompts));
    EXPECT_TRUE(checkValueKey(number, u'\b', seams.prompts));
    EXPECT_TRUE(checkValueKey(real, u'-', seams.prompts));
    EXPECT_TRUE(checkValueKey(real, u'<', seams.prompts)); // counts as neither text nor number
    EXPECT_FALSE(checkValueKey(QueryField{u"t"_s}, u'<', seams.prompts));
    EXPECT_TRUE(checkValueKey(std::nullopt, u'<', seams.prompts));
    seams.prompts.expect(PromptKind::Plain, u"Numeric Field"_s, AnswerOk);
    EXPECT_FALSE(checkValueKey(number, u'-', seams.prompts));
    for (const QChar key : u" :;[]^_aZ9é"_s)
        EXPECT_TRUE(checkNewFieldKey(key, seams.prompts));
    for (const QChar key : u"!./<@\\`{~,'"_s) {
        seams.prompts.expect(PromptKind::Plain, u"Invalid Character"_s, AnswerOk);
        EXPECT_FALSE(checkNewFieldKey(key, seams.prompts));
    }
    for (const int size : {0, 256}) {
        seams.prompts.expect(PromptKind::Plain, u"Invalid Field Size"_s, AnswerOk);
        EXPECT_FALSE(checkNewField(field(u"x"_s, dao::DataType::Text, size), seams.prompts));
    }
    EXPECT_TRUE(checkNewField(field(u"x"_s, dao::DataType::Byte, 0), seams.prompts));
}
