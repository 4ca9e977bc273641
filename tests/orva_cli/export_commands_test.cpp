// Class data left as spreadsheets, without a window.

#include "classes/class_tables.h"
#include "classes/pupil_notes.h"
#include "support/class_file.h"
#include "support/engine_places.h"
#include "support/engine_program.h"
#include "support/workbook_cells.h"
#include "support/year_file.h"

using namespace Qt::StringLiterals;

namespace {

class ExportCommandsTest : public EngineFiles {
protected:
    void SetUp() override {
        TestSeams seams;
        createYear(oneWeekAnswers(), year, seams);
        const dao::Database database = engine.OpenDatabase(year);
        addPupils(database, u"7A"_s, {u"O'Brien,Zoë"_s});
        addNotesCategory(database, u"7A"_s, u"Report"_s, seams.prompts);
        storeLessonNote(database, {u"09/09/24"_s, u"7A"_s, 1}, u"Helped"_s);
    }
    Ended run(const QString& kind, const QString& classCode, const QString& file,
              const QStringList& options = {}) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
        return runProgram(test::built(u"bin/orva-cli"_s),
                          QStringList{u"export"_s, kind, year, classCode, path(file)} + options, {},
                          environment);
    }

    const QString year = path(u"Year.mdb"_s);
};

} // namespace

TEST_F(ExportCommandsTest, EveryKindIsWritten) {
    struct {
        QString kind;
        QStringList options;
        QString lastCell; ///< of the first sheet
    } const cases[] = {
        {u"register"_s, {}, {}},
        {u"grades"_s, {}, {}},
        {u"details"_s, {}, u"Zoë"_s},
        {u"details"_s, {u"--items"_s, u"PID,tutor"_s}, {}},
        {u"notes"_s, {u"--categories"_s, u"report"_s}, {}},
        {u"lesson-notes"_s, {u"--pupil"_s, u"1"_s}, u"Helped"_s},
    };
    const QByteArray before = bytesOf(year);
    for (const auto& each : cases) {
        for (const QString& file : {u"a.xls"_s, u"a.xlsx"_s}) {
            const Ended done =
                run(each.kind, u"7A"_s, file, each.options + QStringList{u"--yes"_s});
            EXPECT_EQ(done.status, 0) << qPrintable(each.kind + done.errors);
            EXPECT_EQ(done.output, QString());
        }
        const QList<ReadSheet> sheets = readWorkbook(path(u"a.xls"_s));
        ASSERT_FALSE(sheets.isEmpty());
        EXPECT_EQ(sheets[0].rows.last().last(), each.lastCell) << qPrintable(each.kind);
    }
    EXPECT_EQ(bytesOf(year), before) << "the year is only read";
}

TEST_F(ExportCommandsTest, WhatIsRefusedLeavesNoFile) {
    struct {
        QString kind;
        QString classCode;
        QStringList options;
        int status;
    } const cases[] = {
        {u"register"_s, u"6Z"_s, {}, 1},
        {u"register"_s, u"8X"_s, {}, 1}, // it has no lessons
        {u"details"_s, u"7A"_s, {u"--items"_s, u"Shoe"_s}, 2},
        {u"notes"_s, u"7A"_s, {}, 1},
        {u"notes"_s, u"7A"_s, {u"--categories"_s, u"None"_s}, 1},
        {u"lesson-notes"_s, u"7A"_s, {}, 2},
        {u"lesson-notes"_s, u"7A"_s, {u"--pupil"_s, u"9"_s}, 1},
        {u"lesson-notes"_s, u"8X"_s, {u"--pupil"_s, u"1"_s}, 1},
        {u"photos"_s, u"7A"_s, {}, 2},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(run(each.kind, each.classCode, u"a.xls"_s, each.options).status, each.status)
            << qPrintable(each.kind);
        EXPECT_FALSE(QFile::exists(path(u"a.xls"_s)));
    }
    writeFile(path(u"a.xls"_s), "old");
    const Ended refused = run(u"grades"_s, u"7A"_s, u"a.xls"_s);
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.errors.startsWith(u"[File Exist] This file already exists!"_s));
    EXPECT_EQ(bytesOf(path(u"a.xls"_s)), "old");
}
