// The program without its windows: how it is called, what it answers of a year's file, and what it
// does with one.

#include "core/core_settings.h"
#include "core/settings.h"
#include "support/engine_files.h"
#include "support/engine_places.h"
#include "support/engine_program.h"
#include "support/year_file.h"

#include <QDir>
#include <QFile>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QByteArray eventOfMay = "The fair of May";

class CommandLineTest : public EngineFiles {
protected:
    /// A year with an event in its calendar.
    void SetUp() override {
        TestSeams seams;
        createYear(twoWeekAnswers(), year, seams);
        dao::Database database = engine.OpenDatabase(year);
        dao::Recordset months = database.OpenRecordset(u"Calendar"_s);
        months.Edit();
        months.SetCollect(u"D1", QString::fromLatin1(eventOfMay));
        months.Update();
    }

    /// Runs the program over folders of the test's own.
    Ended run(const QStringList& arguments, const QByteArray& input = {}) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"HOME"_s, path({}));
        environment.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
        return runProgram(test::built(u"bin/orva-cli"_s), arguments, input, environment);
    }

    static QByteArray bytesOf(const QString& file) {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }
    QString written(const QString& name, const QByteArray& bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    QString protectedYear() const {
        const QString file = written(u"protected.mdb"_s, bytesOf(year));
        engine.OpenDatabase(file).NewPassword({}, u"geheim"_s);
        return file;
    }
    /// The year with the page of its calendar overwritten.
    QString damagedYear() const {
        QByteArray bytes = bytesOf(year);
        const qsizetype page = bytes.indexOf(eventOfMay) / 4096 * 4096;
        return written(u"damaged.mdb"_s, bytes.replace(page, 4096, QByteArray(4096, '\xaa')));
    }
    QStringList backups() const {
        return QDir(path(u"Documents/ORVA/Backups"_s))
            .entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    const QString year = path(u"Year.mdb"_s);
};

} // namespace

TEST_F(CommandLineTest, HowItMustNotBeCalled) {
    const QList<QStringList> calls{
        {},
        {u"lend"_s, year},
        {u"check"_s},
        {u"check"_s, year, u"more"_s},
        {u"check"_s, year, u"--compact"_s},
        {u"backup"_s, year, u"--compact=1"_s},
        {u"check"_s, year, u"--password-fd"_s},
        {u"check"_s, year, u"--password-fd"_s, u"one"_s},
        {u"check"_s, year, u"--password-fd"_s, u"-1"_s},
        {u"check"_s, year, u"--password-fd"_s, u"777"_s},
    };
    for (const QStringList& call : calls) {
        const Ended ended = run(call);
        EXPECT_EQ(ended.status, 2) << qPrintable(call.join(u' '));
        EXPECT_EQ(ended.output, QString());
        EXPECT_TRUE(ended.errors.contains(u"usage: orva-cli "_s)) << qPrintable(ended.errors);
    }
    EXPECT_FALSE(QFile::exists(path(u"data"_s))) << "nothing was begun";
}

TEST_F(CommandLineTest, AYearThatIsWholeStaysAsItIs) {
    for (const QString& original : {year, test::testData(u"jet/year_ab_jet4.mdb"_s),
                                    test::testData(u"jet/year_single_jet4.mdb"_s)}) {
        const QString file = written(u"checked.mdb"_s, bytesOf(original));
        const Ended ended = run({u"check"_s, file});
        EXPECT_EQ(ended.status, 0) << qPrintable(ended.errors);
        EXPECT_EQ(ended.errors, QString());
        EXPECT_TRUE(ended.output.contains(u"Calendar\t12\tok\n"_s)) << qPrintable(ended.output);
        EXPECT_EQ(ended.output.count(u'\n'), engine.OpenDatabase(file).TableDefs().Count());
        EXPECT_EQ(ended.output.count(u'\n'), ended.output.count(u"\tok\n"_s));
        EXPECT_TRUE(bytesOf(file) == bytesOf(original));
    }
}

TEST_F(CommandLineTest, TellsWhatIsPlannedWhere) {
    {
        const dao::Database database = engine.OpenDatabase(year);
        const QString monday = u"SELECT * FROM Planning WHERE PlanDate = '24-09-09'"_s;
        changeRecord(database, monday, u"Lesson1"_s,
                     u"{\\rtf1\\ansi\\pard\\plain One\\par a {\\b Qu}iz\\par }"_s);
        changeRecord(database, monday, u"Homework3"_s, u"quiz"_s);
    }
    const struct {
        QStringList arguments;
        QString output;
    } cases[] = {
        {{u"find"_s, year, u"quiz"_s}, u"24-09-09\t1\t7\n"_s},
        {{u"find"_s, year, u"quiz"_s, u"--match-case"_s}, {}},
        {{u"find"_s, year, u"quiz"_s, u"--match-case"_s, u"--homework"_s}, u"24-09-09\t3\t1\n"_s},
        {{u"history"_s, year, u"7A"_s},
         u"24-09-04\t\t\n24-09-09\tOne\\na Quiz\t\n24-09-09\t\tquiz\n24-09-13\t\t\n24-09-25\t\t\n"_s},
        {{u"history"_s, year, u"8X"_s}, {}},
    };
    const QByteArray before = bytesOf(year);
    for (const auto& each : cases) {
        const Ended ended = run(each.arguments);
        EXPECT_EQ(ended.status, 0) << qPrintable(ended.errors);
        EXPECT_EQ(ended.output, each.output) << qPrintable(each.arguments.join(u' '));
    }
    EXPECT_TRUE(bytesOf(year) == before);
    EXPECT_EQ(run({u"find"_s, year, {}}).status, 2);
}

TEST_F(CommandLineTest, WhatIsNoWholeYearIsRefusedWithItsReason) {
    const QString open = written(u"open.mdb"_s, bytesOf(year));
    const dao::Database held = engine.OpenDatabase(open);
    struct Case {
        QStringList arguments; ///< behind the command
        QByteArray password;
    };
    const Case cases[] = {
        {{open}, {}},
        {{path(u"gone.mdb"_s)}, {}},
        {{written(u"letter.mdb"_s, "Dear Sir or Madam")}, {}},
        {{protectedYear()}, {}},
        {{protectedYear(), u"--password-fd"_s, u"0"_s}, "wrong\n"},
        {{test::testData(u"jet/not_a_year.mdb"_s)}, {}},
        {{written(u"cut.mdb"_s, bytesOf(year).first(20000))}, {}},
    };
    QSet<QString> reasons;
    for (const Case& each : cases) {
        const Ended checked = run(QStringList(u"check"_s) + each.arguments, each.password);
        EXPECT_EQ(checked.status, 1) << qPrintable(each.arguments.constFirst());
        EXPECT_EQ(checked.errors.count(u'\n'), 1) << qPrintable(checked.errors);
        reasons += checked.errors;
        for (const QStringList& option : {QStringList(), QStringList(u"--compact"_s)}) {
            const Ended backedUp =
                run(QStringList(u"backup"_s) + each.arguments + option, each.password);
            EXPECT_EQ(backedUp.status, 1);
            EXPECT_TRUE(backedUp.errors.startsWith(u"[backup] "_s)) << qPrintable(backedUp.errors);
            EXPECT_EQ(backedUp.output, QString());
        }
    }
    EXPECT_EQ(reasons.size(), std::size(cases)) << "each has a reason of its own";
    EXPECT_EQ(run({u"backup"_s, test::testData(u"jet/year_ab_jet4.mdb"_s), u"--compact"_s}).status,
              1);
    EXPECT_EQ(backups(), QStringList());
}

TEST_F(CommandLineTest, ADamagedYearIsMendedOnceThatIsAgreedTo) {
    const QString damaged = damagedYear();
    const QByteArray before = bytesOf(damaged);
    const Ended checked = run({u"check"_s, damaged});
    EXPECT_EQ(checked.status, 1);
    EXPECT_TRUE(checked.output.contains(u"Planning\t13\tok\n"_s)) << qPrintable(checked.output);
    EXPECT_TRUE(checked.output.contains(u"Calendar\t0\tNot all records"_s));
    EXPECT_NE(checked.errors, QString());

    const Ended declined = run({u"repair"_s, damaged});
    EXPECT_EQ(declined.status, 1);
    EXPECT_EQ(declined.output, QString());
    EXPECT_TRUE(declined.errors.startsWith(u"[Repair Database:] The opperation "_s));
    EXPECT_TRUE(declined.errors.contains(u".\\nYou should "_s)) << "line breaks are written out";
    EXPECT_TRUE(bytesOf(damaged) == before);

    const Ended mended = run({u"repair"_s, damaged, u"--yes"_s});
    EXPECT_EQ(mended.status, 0) << qPrintable(mended.errors);
    EXPECT_TRUE(mended.output.contains(u"Calendar\t0\t0\t0+\t0\n"_s)) << qPrintable(mended.output);
    EXPECT_TRUE(mended.output.contains(u"Planning\t13\t0\t0\t0\n"_s));
    EXPECT_TRUE(mended.output.endsWith(damaged + u'\n' + path(u"damaged.damaged.mdb"_s) + u'\n'));
    EXPECT_EQ(run({u"check"_s, damaged}).status, 0);

    const Ended hopeless = run({u"repair"_s, written(u"letter.mdb"_s, "Dear Sir"), u"--yes"_s});
    EXPECT_EQ(hopeless.status, 1);
    EXPECT_TRUE(hopeless.errors.contains(u"[Repair Error] "_s)) << qPrintable(hopeless.errors);
}

TEST_F(CommandLineTest, AProtectedYearIsWorkedOnWithItsPassword) {
    const QString file = protectedYear();
    const QStringList commands[] = {{u"check"_s, file},
                                    {u"repair"_s, file, u"--yes"_s},
                                    {u"backup"_s, file},
                                    {u"backup"_s, file, u"--compact"_s}};
    for (const QStringList& command : commands) {
        const Ended refused = run(command);
        EXPECT_EQ(refused.status, 1) << qPrintable(command[0]);
        EXPECT_TRUE(refused.errors.contains(u"password"_s)) << qPrintable(refused.errors);
        const Ended done =
            run(command + QStringList{u"--password-fd"_s, u"0"_s}, "geheim\nof another file\n");
        EXPECT_EQ(done.status, 0) << qPrintable(done.errors);
    }
    EXPECT_EQ(backups(), (QStringList{u"protected.001"_s, u"protected.002"_s}));
    for (const QString& kept : {file, path(u"Documents/ORVA/Backups/protected.001"_s)})
        EXPECT_TRUE(engine.OpenDatabase(kept, false, true, dao::connectText(u"geheim"_s)).isOpen());
    EXPECT_FALSE(bytesOf(path(u"config/orva/settings.ini"_s)).contains("geheim"));
}

TEST_F(CommandLineTest, BackupsTakeTurnsInTheFolderThatIsSet) {
    const QString newest = path(u"Documents/ORVA/Backups/Year.001"_s);
    const QByteArray first = bytesOf(year);
    QStringList expected;
    for (int i = 1; i <= 6; ++i) {
        const Ended ended = run({u"backup"_s, year});
        EXPECT_EQ(ended.status, 0) << qPrintable(ended.errors);
        EXPECT_EQ(ended.output, newest + u'\n');
        if (i < 6)
            expected += u"Year.00%1"_s.arg(i);
        EXPECT_EQ(backups(), expected);
    }
    EXPECT_TRUE(bytesOf(year) == first && bytesOf(newest) == first);
    const Ended compacted = run({u"backup"_s, year, u"--compact"_s});
    EXPECT_EQ(compacted.status, 0) << qPrintable(compacted.errors);
    EXPECT_EQ(compacted.output, newest + u'\n' + year + u'\n');
    EXPECT_TRUE(bytesOf(newest) == first);

    QDir().mkpath(path(u"stick"_s));
    Settings(path(u"config/orva/settings.ini"_s))
        .set(setting::DefaultBackupFolder, path(u"stick/"_s));
    EXPECT_EQ(run({u"backup"_s, year}).output, path(u"stick/Year.001"_s) + u'\n');
    QDir(path(u"stick"_s)).removeRecursively();
    const Ended refused = run({u"backup"_s, year});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.errors.startsWith(u"[Backup Error] "_s)) << qPrintable(refused.errors);
}
