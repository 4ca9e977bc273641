#include "classes/class_code.h"
#include "support/engine_files.h"
#include "support/engine_places.h"
#include "year/year_answers_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const char* const good = R"({
  "title": "Mrs", "name": "A Morrow", "year": "2024-2025", "periodsPerDay": 5,
  "twoWeeks": true, "startWeek": "B",
  "terms": [["2024-09-04","2024-10-25"], ["2024-11-04","2024-12-20"]],
  "classes": ["9C","7a","É_]^"],
  "colours": {"7A": 16744448, "9C": 2147483653},
  "timetable": {"A": {"Mon": ["7A","","9c","",""], "Tue": [], "Wed": [], "Thu": [], "Fri": []},
                "B": {"Mon": [], "Fri": ["É_]^"]}} })";

/// The good answers with one of them (a path of keys, or of a key and an index) set anew by a text
/// of JSON, taken out where that is empty.
QByteArray changed(const QString& key, const QByteArray& json) {
    QJsonObject root = QJsonDocument::fromJson(good).object();
    if (json.isEmpty())
        root.remove(key);
    else
        root.insert(key, QJsonDocument::fromJson('[' + json + ']').array().at(0));
    return QJsonDocument(root).toJson();
}

TEST(YearAnswers, ReadsAGoodFile) {
    const ReadAnswers read = readYearAnswers(good, QLocale::c());
    ASSERT_FALSE(read.fault) << read.fault->field.toStdString() << read.fault->text.toStdString();
    const YearAnswers& answers = read.answers;
    EXPECT_EQ(teacherText(answers), u"Mrs A Morrow"_s);
    EXPECT_EQ(answers.classes, QStringList({u"7A"_s, u"9C"_s, u"É_]^"_s}));
    EXPECT_EQ(answers.colours.value(u"9C"_s), qint32(0x80000005));
    EXPECT_EQ(answers.terms.last(), (DatePeriod{QDate(2024, 11, 4), QDate(2024, 12, 20)}));
    EXPECT_EQ(classAt(answers.weekA, 0, 3), u"9C"_s);
    EXPECT_TRUE(classAt(answers.weekA, 1, 5).isEmpty());
    EXPECT_EQ(classAt(answers.weekB, 4, 1), u"É_]^"_s);
}

TEST(YearAnswers, SampleHolds) {
    const ReadAnswers read = readYearAnswers(bytesOf(test::sample(u"year.json"_s)), QLocale::c());
    ASSERT_FALSE(read.fault) << read.fault->field.toStdString() << read.fault->text.toStdString();
    EXPECT_EQ(read.answers.terms.size(), 6);
    EXPECT_EQ(read.answers.classes.size(), 7);
}

TEST(YearAnswers, RefusesWithTheFieldAndAReason) {
    const struct {
        const char* key;
        const char* json; ///< empty: the answer is taken out
        const char* field;
        const char* text; ///< a part of the reason
    } cases[] = {
        {"name", "", "name", "missing"},
        {"name", "7", "name", "text"},
        {"name", "\"  \"", "name", "You must enter a name for the Teacher"},
        {"name", "\"123456789012345678901234567\"", "name", "30"},
        {"name", "\"a\\nb\"", "name", "line break"},
        {"title", "null", "title", "text"},
        {"year", "\"2024\"", "year", "hyphen"},
        {"year", "\"2024-2025\\n\"", "year", "hyphen"},
        {"periodsPerDay", "0", "periodsPerDay", "1 to 9"},
        {"periodsPerDay", "10", "periodsPerDay", "1 to 9"},
        {"periodsPerDay", "5.5", "periodsPerDay", "whole"},
        {"periodsPerDay", "\"5\"", "periodsPerDay", "whole"},
        {"periodsPerDay", "1e300", "periodsPerDay", "whole"},
        {"periodsPerDay", "2", "timetable.A.Mon", "only 2 periods"},
        {"twoWeeks", "1", "twoWeeks", "true or false"},
        {"twoWeeks", "false", "timetable.B", "two weeks only"},
        {"startWeek", "\"C\"", "startWeek", "A or B"},
        {"startWeek", "", "startWeek", "missing"},
        {"classes", "[]", "classes", "You must enter at least one classcode!"},
        {"classes", "[\"7A\",\"9C\",\"7 B\"]", "classes", "can't use that character"},
        {"classes", "[\"7A\",\"9C\",\"7\\u0000\"]", "classes", "can't use that character"},
        {"classes", "[\"7A\",\"9C\",\"ABCDEFG\"]", "classes", "at most 6"},
        {"classes", "[\"7A\",\"9C\",\"7a\"]", "classes", "already in use"},
        {"classes", "[\"7A\",\"9C\",\"temp\"]", "classes", "already in use"},
        {"classes", "[\"7A\",\"9C\",\"\"]", "classes", "at least one character"},
        {"classes", "[\"7A\", 9]", "classes[1]", "text"},
        {"classes", "[\"7A\",\"9C\"]", "timetable.B.Fri[0]", "no class"},
        {"colours", "{\"7B\": 1}", "colours.7B", "no class"},
        {"colours", "{\"7A\": 4294967296}", "colours.7A", "whole"},
        {"colours", "{\"7A\": \"red\"}", "colours.7A", "whole"},
        {"colours", "{\"7A\": 1, \"7a\": 2}", "colours.7a", "two colours"},
        {"terms", "[]", "terms", "valid date"},
        {"terms", "[[\"0024-09-04\",\"0024-09-30\"]]", "terms[0]", "valid date"},
        {"terms", "[[\"9999-09-04\",\"9999-12-31\"]]", "terms", "cannot span"},
        {"terms", "[[\"2024-09-04\"]]", "terms[0]", "two dates"},
        {"terms", "[[\"2024-09-04\",\"2024-9-30\"]]", "terms[0]", "yyyy-mm-dd"},
        {"terms", "[[\"2024-02-30\",\"2024-09-30\"]]", "terms[0]", "yyyy-mm-dd"},
        {"terms", "[[\"2024-09-04\",\"2024-09-30T00:00\"]]", "terms[0]", "yyyy-mm-dd"},
        {"terms", "[[\"2024-09-04\",\"2024-09-03\"]]", "terms[0]", "preceeds the starting date"},
        {"terms", "[[\"2024-09-04\",\"2024-09-10\"],[\"2024-09-09\",\"2024-09-12\"]]", "terms[1]",
         "The end of the period "},
        {"terms", "[[\"2024-09-07\",\"2024-09-08\"]]", "terms", "Monday to Friday"},
        {"terms", "[[\"2024-08-01\",\"2025-08-01\"]]", "terms", "cannot span more than one year!"},
        {"timetable", "[]", "timetable", "object"},
        {"timetable", "{\"A\": {}}", "timetable.B", "missing"},
        {"timetable", "{\"A\": {\"Sat\": []}, \"B\": {}}", "timetable.A.Sat", "no such"},
        {"timetable", "{\"A\": {\"Mon\": [null]}, \"B\": {}}", "timetable.A.Mon[0]", "text"},
        {"timetable", "{\"A\": {}, \"B\": {}, \"C\": {}}", "timetable.C", "no such"},
        {"Name", "\"A\"", "Name", "no such"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(std::string(each.key) + ": " + each.json);
        const AnswerCheck fault =
            readYearAnswers(changed(QLatin1String(each.key), each.json), QLocale::c()).fault;
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->field.toStdString(), each.field);
        EXPECT_TRUE(fault->text.contains(QLatin1String(each.text))) << fault->text.toStdString();
    }
    for (const QByteArray& text : {QByteArray(), QByteArray("{"), QByteArray("[]"),
                                   QByteArray("\xff\xfe{}"), QByteArray(100000, '[')})
        EXPECT_EQ(readYearAnswers(text, QLocale::c()).fault->field, u"file"_s);
}

TEST(YearAnswers, TermsAtTheEdge) {
    const char* const accepted[] = {
        "[[\"2023-08-01\",\"2024-07-31\"]]", // a leap day inside
        "[[\"2024-08-01\",\"2025-07-31\"]]",
        "[[\"2024-02-29\",\"2025-02-28\"]]",
        "[[\"2024-09-04\",\"2024-09-10\"],[\"2024-09-10\",\"2024-09-10\"]]",
    };
    for (const char* terms : accepted)
        EXPECT_FALSE(readYearAnswers(changed(u"terms"_s, terms), QLocale::c()).fault) << terms;
}

TEST(YearAnswers, CharactersOfClassCodes) {
    for (const char32_t character : std::u32string_view(U"09azAZ[]^_ÉЖ"))
        EXPECT_TRUE(isClassCodeCharacter(character)) << int(character);
    for (const char32_t character :
         std::u32string_view(U"\x1F !\"#$%&'()*+,-./:;<=>?@\\`{|}~\x7F\x85\xA0"))
        EXPECT_FALSE(isClassCodeCharacter(character)) << int(character);
    EXPECT_FALSE(isClassCodeCharacter(0) || isClassCodeCharacter(0xD800));
    QStringList codes{u"a"_s, u"B"_s, u"[1"_s, u"10"_s, u"9"_s};
    sortClasses(codes);
    EXPECT_EQ(codes.join(u' '), u"10 9 B [1 a"_s);
}

} // namespace
