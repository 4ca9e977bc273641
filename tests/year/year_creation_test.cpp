#include "year/year_creation.h"

#include "classes/class_code.h"
#include "store/engine/files.h"
#include "store/engine/names.h"
#include "support/class_file.h"
#include "support/engine_kill.h"

#include <csignal>
#include <unistd.h>

namespace {

/// The rows of a SELECT: a text a row, its values with a blank between, Null as "-".
QStringList rows(const dao::Database& database, const QString& source) {
    return rowsOf(database, source)
        .replaceInStrings(u"|"_s, u" "_s)
        .replaceInStrings(u"~"_s, u"-"_s);
}

QStringList lines(const char* text) {
    return QString::fromUtf8(text).split(u'\n');
}

QStringList relationNames(const dao::Database& database) {
    QStringList names;
    for (const dao::Relation& relation : database.Relations().all())
        names += relation.Name;
    names.sort();
    return names;
}

TEST(Creation, AYearOfTwoTimetables) {
    YearFile file(twoWeekAnswers());
    const dao::Database database = file.open();

    EXPECT_EQ(database.TableDefs().names(),
              lines("Planning\nCalendar\nAdmin\nClasscodes\nExtraTTinfo\nExtraTTinfoB\nTermDates\n"
                    "Class_7A\nClass_8X\nClass_9C\nREG_7A\nMarks_7A\nMarks_8X\nREG_9C\nMarks_9C"));
    EXPECT_EQ(rows(database, u"Admin"_s), lines("Mrs A Morrow 2024-2025 5 1 B 0 0 0"));
    EXPECT_EQ(rows(database, u"Classcodes"_s), lines("7A 13 - - - 2 7A 16744448 - - 5 - -\n"
                                                     "8X - - - - - 8X 16777215 - - - - -\n"
                                                     "9C - - - - - 9C 16777215 12 - - - -"));
    EXPECT_EQ(rows(database, u"TermDates"_s),
              lines("1 2024 9 4\n2 2024 9 13\n3 2024 9 23\n4 2024 9 27"));
    EXPECT_EQ(rows(database, u"SELECT ID, PlanDate, Week, ABWeek, Class1, Class2, "
                             "Class3, Class5, Lesson1, Notes FROM Planning"_s),
              lines("1 24-09-04 1 B    7A - -\n2 24-09-05 1 B     - -\n3 24-09-06 1 B     - -\n"
                    "4 24-09-09 2 A 7A  7A  - -\n5 24-09-10 2 A     - -\n6 24-09-11 2 A     - -\n"
                    "7 24-09-12 2 A     - -\n8 24-09-13 2 A  7A   - -\n"
                    "9 24-09-23 3 B 9C 9C   - -\n10 24-09-24 3 B     - -\n"
                    "11 24-09-25 3 B    7A - -\n12 24-09-26 3 B     - -\n"
                    "13 24-09-27 3 B     - -"));
    const QStringList calendar = rows(database, u"SELECT Month, D1 FROM Calendar"_s);
    EXPECT_EQ(calendar.size(), 12);
    EXPECT_EQ(calendar.first() + calendar.last(), u"Jan1 -Dec1 -"_s);
    const QStringList freeSlots = rows(database, u"ExtraTTinfo"_s);
    EXPECT_EQ(freeSlots.size(), 22);
    EXPECT_EQ(freeSlots.first() + freeSlots.last(), u"2 1 - -5 5 - -"_s);
    EXPECT_EQ(rows(database, u"ExtraTTinfoB"_s).size(), 22);

    EXPECT_EQ(fieldNames(database, u"REG_7A"_s),
              lines("ID\n04/09/24 1\n09/09/24 2\n09/09/24 3\n13/09/24 4\n25/09/24 5"));
    EXPECT_EQ(fieldNames(database, u"REG_9C"_s), lines("ID\n23/09/24 1\n23/09/24 2"));
    EXPECT_EQ(relationNames(database), lines("CMark_7A\nCMark_8X\nCMark_9C\nCReg_7A\nCReg_9C"));
    const dao::Relation relation = database.Relations().all().first();
    EXPECT_EQ(relation.Attributes, 0x1100);
    EXPECT_EQ(relation.Fields.first().Name + relation.Fields.first().ForeignName, u"IDID"_s);

    EXPECT_EQ(file.seams().progress.title, u"Creating Database:"_s);
    EXPECT_FALSE(file.seams().progress.isOpen);
    QStringList progress;
    for (const RecordingProgress::Step& step : file.seams().progress.steps)
        if (!step.line1.isEmpty() && (progress.isEmpty() || progress.last() != step.line1))
            progress += step.line1;
    EXPECT_EQ(progress,
              lines("Creating Planning Table\nAppending Planning Table\nCreating Calendar Table\n"
                    "Adding Day Fields\nCreating Month Records\nCreating Admin Table\n"
                    "Filling Admin Data\nCreating Classcodes Table\nFilling Classcodes Data\n"
                    "Creating Extra Timetable info Table\nCreating the Term Dates Table\n"
                    "Adding the Planning Table Data\nCreating the Register,Marks and Info tables"));
}

TEST(Creation, AYearOfOneTimetable) {
    YearFile file(oneWeekAnswers());
    const dao::Database database = file.open();
    EXPECT_FALSE(TableExists(database, u"ExtraTTinfoB"_s));
    EXPECT_FALSE(fieldNames(database, PlanningTable).contains(u"ABWeek"_s));
    EXPECT_FALSE(fieldNames(database, AdminTable).contains(u"StartWeek"_s));
    EXPECT_EQ(fieldNames(database, ClasscodesTable).size(), 8);
    EXPECT_EQ(fieldNames(database, u"REG_7A"_s),
              lines("ID\n06/09/24 1\n09/09/24 2\n09/09/24 3\n13/09/24 4\n23/09/24 5\n23/09/24 6\n"
                    "27/09/24 7"));
    EXPECT_EQ(relationNames(database), lines("CMark_7A\nCMark_8X\nCMark_9C\nCReg_7A"));
}

TEST(Creation, RegistersEndAt250Lessons) {
    YearAnswers answers = oneWeekAnswers();
    answers.terms = {{QDate(2024, 9, 2), QDate(2024, 11, 11)}}; // 51 days from a Monday
    for (QStringList& day : answers.weekA)
        day = QStringList(5, u"7A"_s);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"long.mdb"_s);
    TestSeams seams;
    seams.prompts.expect(PromptKind::Plain, u"Too many fields"_s, int(AnswerOk));
    createYear(answers, path, seams);
    EXPECT_EQ(seams.prompts.last().text,
              u"The register for 7A may be limited since the number of registrations "
              "required (255) exceeds the number of Access Fields allowed per table "
              "(255). You may wish to remove this class and spit it into 2 seperate "
              "classes."_s);
    const QStringList fields = fieldNames(dao::DBEngine().OpenDatabase(path), u"REG_7A"_s);
    EXPECT_EQ(fields.size(), 251);
    EXPECT_EQ(fields.last(), u"08/11/24 250"_s);
}

TEST(Creation, ClassCodesOfAllKindsWork) {
    YearAnswers answers = oneWeekAnswers();
    answers.classes = {u"7A]"_s, u"ÉÄ"_s, u"[_^"_s, u"]]"_s};
    sortClasses(answers.classes);
    answers.colours.clear();
    answers.weekA = {};
    answers.weekA[0] = answers.classes;
    YearFile file(answers);
    const dao::Database database = file.open();
    for (const QString& code : answers.classes) {
        SCOPED_TRACE(code.toStdString());
        addPupils(database, code, {u"Ames"_s});
        const QString own = dao::writeName(classTable(code));
        const QString other = dao::writeName(marksTable(code));
        EXPECT_EQ(rows(database, u"SELECT Surname FROM %1 INNER JOIN %2 ON %1.ID = "
                                 "%2.ID"_s.arg(own, other)),
                  lines("Ames"));
        database.OpenRecordset(classTable(code)).Delete();
        EXPECT_TRUE(rows(database, marksTable(code)).isEmpty()); // the deletion cascades
    }
}

TEST(Creation, ExistingFilesAreKeptUnlessReplaced) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"year.mdb"_s);
    const auto failure = [&](ExistingFile existing) {
        TestSeams seams;
        return errorOf([&] { createYear(twoWeekAnswers(), path, seams, existing); });
    };
    writeFile(path, "no database");
    EXPECT_EQ(failure(ExistingFile::Keep), dao::FileExists);
    EXPECT_EQ(bytesOf(path), QByteArray("no database"));

    // What killed runs left beside it goes, a journal that would spoil the new file as well.
    writeFile(dao::unfinishedName(path), "half a file");
    writeFile(dao::unfinishedName(path) + u"-journal"_s, "its journal");
    writeFile(path + u"-journal"_s, "the old file's journal");
    EXPECT_EQ(failure(ExistingFile::Replace), 0);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), lines("year.mdb"));

    const QTemporaryDir other;
    const QString link = other.filePath(u"link.mdb"_s);
    ASSERT_TRUE(QFile::link(path, link));
    TestSeams seams;
    createYear(oneWeekAnswers(), link, seams, ExistingFile::Replace);
    EXPECT_EQ(QFile::symLinkTarget(link), path); // the file is replaced, not the link
    EXPECT_EQ(rows(dao::DBEngine().OpenDatabase(path), AdminTable),
              lines("Mrs A Morrow 2024-2025 5 0 0 0 0"));

    const dao::Database open = dao::DBEngine().OpenDatabase(path);
    EXPECT_EQ(failure(ExistingFile::Replace), dao::OpenedExclusively);
    EXPECT_EQ(rows(open, AdminTable).size(), 1);
}

/// Makes the year in a child process that first calls `prepare`; answers the number of the failure,
/// 0 for none, -1 for a child that died.
int createInChild(const QString& path, Progress* progress, const std::function<void()>& prepare) {
    const int status = statusOf([&] {
        prepare();
        const int number = errorOf([&] {
            TestSeams seams;
            CreateDB(dao::DBEngine(), twoWeekAnswers(), path, ExistingFile::Replace,
                     progress ? *progress : seams.progress, seams.prompts, QLocale::c());
        });
        return number ? number - 3000 : 0;
    });
    return status > 0 ? status + 3000 : status;
}

int createUnderLimit(const QString& path, rlim_t limit) {
    return createInChild(path, nullptr, [limit] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit sizes{limit, limit};
        setrlimit(RLIMIT_FSIZE, &sizes);
    });
}

/// Kills its own process at one of its steps.
class KillingProgress : public RecordingProgress {
public:
    explicit KillingProgress(int step) : m_step(step) {}
    void UpdateProgress(int, const QString&, const QString&) override {
        if (m_step-- == 0)
            kill(getpid(), SIGKILL);
    }

private:
    int m_step;
};

TEST(Creation, AKillLeavesNothingUnderTheName) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"year.mdb"_s);
    for (int step = 0; step < 50; step += 7) {
        KillingProgress progress(step);
        EXPECT_EQ(createInChild(path, &progress, [] {}), -1) << step;
        EXPECT_FALSE(QFile::exists(path)) << step;
    }
    EXPECT_EQ(createInChild(path, nullptr, [] {}), 0);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), lines("year.mdb"));
    EXPECT_EQ(rows(dao::DBEngine().OpenDatabase(path), PlanningTable).size(), 13);
}

TEST(Creation, AFullDiskLeavesNothingBehind) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"year.mdb"_s);
    const QDir::Filters all = QDir::Files | QDir::Hidden;
    for (const rlim_t limit : {0, 1000, 5000, 20000, 50000}) {
        const int number = createUnderLimit(path, limit);
        EXPECT_TRUE(number == dao::DiskError || number == dao::DiskFull ||
                    number == dao::CannotOpenFile)
            << limit << ": " << number;
        EXPECT_TRUE(QDir(folder.path()).entryList(all).isEmpty()) << limit;
    }
    EXPECT_EQ(createUnderLimit(path, RLIM_INFINITY), 0);
    const QByteArray bytes = bytesOf(path);
    EXPECT_GT(createUnderLimit(path, 20000), 0);
    EXPECT_EQ(bytesOf(path), bytes); // the one to be replaced stands
    EXPECT_EQ(QDir(folder.path()).entryList(all), lines("year.mdb"));
}

} // namespace
