// The start of the program, from the fork to its end: as soon as its window is shown, and as soon
// as the sheet of today is painted, where the person left it open.

#include "core/core_settings.h"
#include "core/dates.h"
#include "core/program_settings.h"
#include "core/settings.h"
#include "figures.h"
#include "planning/sheet_making.h"
#include "richtext/rtf_writer.h"
#include "sample_year.h"
#include "store/engine/engine.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/table_names.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTextDocument>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// A program run without a screen and with folders of its own in place of the person's.
class Start : public Work {
public:
    Start(const QString& program, const QStringList& arguments, const QString& home) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"HOME"_s, home);
        for (const char* kind :
             {"CONFIG_HOME", "DATA_HOME", "CACHE_HOME", "STATE_HOME", "RUNTIME_DIR"})
            environment.insert(u"XDG_"_s + QLatin1StringView(kind), home);
        m_process.setProgram(QCoreApplication::applicationDirPath() + u'/' + program);
        m_process.setArguments(arguments);
        m_process.setProcessEnvironment(environment);
    }

    void run() override {
        m_process.start();
        m_process.waitForFinished(); // half a minute: one that asks something does not end
    }
    qint64 finish() override {
        if (m_process.error() != QProcess::UnknownError ||
            m_process.exitStatus() != QProcess::NormalExit || m_process.exitCode() != 0)
            throw std::runtime_error(m_process.program().toStdString() + " did not start:\n" +
                                     m_process.readAllStandardError().toStdString());
        return 1;
    }

private:
    QProcess m_process;
};

/// A folder that only its owner may use, as the desktop gives to each person.
QString makeHome(const QString& path) {
    QDir().mkpath(path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

/// Writes the text in all boxes of the sheet of a date, which is made where the year has none.
void fillSheet(const QString& path, const QString& planDate, const QStringList& fields,
               const QString& text) {
    const QTextDocument document(text);
    const QString rtf = richtext::writeDocument(document);
    const dao::Database year = dao::DBEngine().OpenDatabase(path);
    dao::Recordset sheets = year.OpenRecordset(PlanningTable);
    const QString criteria = u"PlanDate = "_s + dao::writeText(planDate);
    if (!FindFirstInRecordset(sheets, criteria)) {
        AddNewPlan(year, sheets, planDate);
        FindFirstInRecordset(sheets, criteria);
    }
    sheets.Edit();
    for (const QString& field : fields)
        sheets.SetCollect(field, rtf);
    sheets.Update();
}

Figure startToSheet(const QString& folder, int rounds) {
    constexpr double bound = 1.5;
    const QString home = makeHome(folder + u"/sheet_home"_s);
    const QString year = home + u"/year.mdb"_s;
    const YearAnswers answers = sampleAnswers();
    const QString planDate = sheetDateText(QDate::currentDate());
    const QStringList fields = sheetFields(answers.periodsPerDay);
    const QString text = u"Starter: recap fractions. Work through page 12 in groups of four."_s;
    createSampleYear(year, answers);
    fillSheet(year, planDate, fields, text);
    Settings settings(home + u"/orva/settings.ini"_s);
    settings.set(setting::DefaultDatabasePath, year);
    settings.set(setting::DontShowStartup, true);
    settings.set(setting::Open_Planning, true);
    return {u"start to today's sheet"_s, bound, rounds,
            std::make_unique<Start>(u"orva"_s, QStringList{u"--quit-when-opened"_s}, home),
            std::make_unique<Start>(
                u"bare_sheet"_s, QStringList{year, planDate, QString::number(fields.size()), text},
                home)};
}

} // namespace

std::vector<Figure> startFigures(const QString& folder) {
    constexpr int rounds = 40;
    const QString home = makeHome(folder + u"/home"_s);
    std::vector<Figure> figures;
    figures.push_back(
        {u"start the program"_s, 1.5, rounds,
         std::make_unique<Start>(u"orva"_s, QStringList{u"--quit-when-shown"_s}, home),
         std::make_unique<Start>(u"bare_window"_s, QStringList(), home)});
    figures.push_back(startToSheet(folder, rounds));
    return figures;
}
