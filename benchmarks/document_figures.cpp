// Documents for the word processor, written to files: the weekly plan of five classes over twelve
// weeks beside the plain text of the same lessons, and the cover sheets of a day beside the same
// rows as text.

#include "figures.h"
#include "full_year.h"
#include "planning/cover_sheets.h"
#include "planning/weekly_plan.h"
#include "quiet_session.h"
#include "raw_library.h"
#include "richtext/plain_text.h"
#include "sample_year.h"

#include <QFileInfo>
#include <QSaveFile>

#include <stdexcept>

namespace {

constexpr int periods = FullYearPeriods;
constexpr int pupilsEach = 30;
const QStringList planClasses{u"7M2"_s, u"8M1"_s, u"9M4"_s, u"10M1"_s, u"11M3"_s};
const QString sqlClasses = u"('7M2','8M1','9M4','10M1','11M3')"_s;
const DatePeriod twelveWeeks{{2026, 9, 7}, {2026, 11, 29}};
const QDate coverDay{2026, 9, 9};
const QStringList coverClasses = planClasses + QStringList{u"12MA"_s};

void writeText(const QString& path, const QString& text) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0 || !file.commit())
        throw std::runtime_error("a text could not be written");
}

/// One side of a figure: makes a file, which has to be there in the end.
class Written : public Work {
public:
    explicit Written(const QString& path) : m_target(path + u".made"_s) {}
    qint64 finish() override {
        const bool isThere = QFileInfo(m_target).size() > 0;
        QFile::remove(m_target);
        return isThere ? 1 : 0;
    }

protected:
    const QString m_target;
};

class DocumentWritten : public Written {
public:
    explicit DocumentWritten(const QString& path) : Written(path), m_year(path, periods) {
        for (const QString& code : coverClasses)
            session().ClassColours += {code, WhiteClassColour};
    }

protected:
    Session& session() { return m_year.session(); }
    DocumentPlace place() const { return {.appPath = {}, .webAddress = {}, .target = m_target}; }

private:
    QuietYear m_year;
};

class WeeklyPlanWritten : public DocumentWritten {
public:
    using DocumentWritten::DocumentWritten;
    void run() override { CreateWeeklyPlan(session(), place(), twelveWeeks, planClasses); }
};

class WeeklyTexts : public Written {
public:
    explicit WeeklyTexts(const QString& path) : Written(path), m_year(path) {}
    void run() override {
        QString text;
        for (int period = 1; period <= periods; ++period) {
            const RawStatement rows = m_year.prepare(
                u"SELECT PlanDate,Class%1,Lesson%1,Homework%1 FROM Planning WHERE PlanDate "
                "BETWEEN '26-09-07' AND '26-11-29' AND Class%1 IN %2 ORDER BY PlanDate"_s
                    .arg(period)
                    .arg(sqlClasses)
                    .toUtf8());
            while (m_year.step(rows))
                text += textOf(rows, 0) + textOf(rows, 1) + richtext::plainText(textOf(rows, 2)) +
                        richtext::plainText(textOf(rows, 3));
        }
        writeText(m_target, text);
    }

private:
    RawDatabase m_year;
};

class CoversWritten : public DocumentWritten {
public:
    using DocumentWritten::DocumentWritten;
    void run() override {
        CreateCoverSheets(session(), place(), coverLessons(session(), coverDay));
    }
};

class CoverTexts : public Written {
public:
    explicit CoverTexts(const QString& path) : Written(path), m_year(path) {}
    void run() override {
        QString text;
        const RawStatement day =
            m_year.prepare("SELECT Class1,Class2,Class3,Class4,Class5,Class6 FROM Planning "
                           "WHERE PlanDate = '26-09-09'");
        m_year.step(day);
        readColumns(day);
        for (int period = 0; period < periods; ++period) {
            const RawStatement pupils =
                m_year.prepare("SELECT Surname,Firstname FROM Class_" +
                               textOf(day, period).toUtf8() + " ORDER BY Surname");
            while (m_year.step(pupils))
                text += textOf(pupils, 0) + textOf(pupils, 1);
        }
        writeText(m_target, text);
    }

private:
    RawDatabase m_year;
};

/// Full lessons; on one day six of a class of thirty.
QString yearForDocuments(const QString& path) {
    makeFullYear(path, periods, FullYearSheets, lessonFields(periods));
    const dao::DBEngine engine;
    const dao::Database year = engine.OpenDatabase(path);
    dao::Transaction whole(year);
    for (const QString& classCode : coverClasses) {
        dao::Recordset pupils = year.OpenRecordset(u"Class_"_s + classCode);
        for (int pupil = 1; pupil <= pupilsEach; ++pupil) {
            pupils.AddNew();
            pupils.SetCollect(u"Surname", u"Featherstone%1"_s.arg(pupil));
            pupils.SetCollect(u"Firstname", u"Ann"_s);
            pupils.Update();
        }
        pupils.Close();
    }
    dao::Recordset day =
        year.OpenRecordset(u"SELECT * FROM Planning WHERE PlanDate = '26-09-09'"_s);
    day.Edit();
    for (int period = 1; period <= periods; ++period)
        day.SetCollect(u"Class%1"_s.arg(period), coverClasses[period - 1]);
    day.Update();
    day.Close();
    whole.commit();
    return path;
}

} // namespace

std::vector<Figure> documentFigures(const QString& folder) {
    constexpr double bound = 3;
    constexpr int rounds = 20;
    const QString path = yearForDocuments(folder + u"/documents.mdb"_s);
    const QString rawPath = folder + u"/raw_documents.mdb"_s;
    QFile::copy(path, rawPath);
    std::vector<Figure> figures;
    figures.push_back({u"weekly plan of 12 weeks written"_s, bound, rounds,
                       std::make_unique<WeeklyPlanWritten>(path),
                       std::make_unique<WeeklyTexts>(rawPath)});
    figures.push_back({u"cover sheets of 6 lessons"_s, bound, rounds,
                       std::make_unique<CoversWritten>(path),
                       std::make_unique<CoverTexts>(rawPath)});
    return figures;
}
