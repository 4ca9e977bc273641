// The past of a year of full sheets: a text looked for through all lessons, beside the raw library
// reading the same fields and their plain text; and the viewer made, filled with the history of a
// class and painted, beside the raw library reading its rows and one of them shown as HTML.

#include "figures.h"
#include "full_year.h"
#include "planning/lesson_search.h"
#include "planning/screens/history_window.h"
#include "quiet_session.h"
#include "raw_library.h"
#include "richtext/plain_text.h"
#include "sample_year.h"

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int periods = FullYearPeriods;
const QString classCode = u"7M2"_s;

class Hunt : public Work {
public:
    explicit Hunt(const QString& path) : m_year(path, periods) {}
    void run() override {
        LessonSearch search(m_year.session(), {.text = u"quadratic"_s});
        for (m_sheets = 0; search.lookOn() == LessonSearch::State::Looking;)
            ++m_sheets;
    }
    qint64 finish() override { return m_sheets; }

private:
    QuietYear m_year;
    qint64 m_sheets = 0;
};

class RawReading : public Work {
public:
    explicit RawReading(const QString& path) : m_database(path) {}
    void run() override {
        const RawStatement rows = m_database.prepare(
            "SELECT Lesson1, Lesson2, Lesson3, Lesson4, Lesson5, Lesson6 FROM Planning "
            "ORDER BY PlanDate");
        m_sheets = 0;
        for (; m_database.step(rows); ++m_sheets) {
            for (int column = 0; column < periods; ++column)
                m_characters += richtext::plainText(textOf(rows, column)).size();
        }
    }
    qint64 finish() override { return m_sheets; }

private:
    RawDatabase m_database;
    qint64 m_sheets = 0;
    qint64 m_characters = 0; ///< so that nothing can be left out
};

class ShowHistory : public Work {
public:
    explicit ShowHistory(const QString& path) : m_year(path, periods) {
        m_year.session().CurrentClass = classCode;
    }
    void prepare() override { m_viewer.reset(); }
    void run() override {
        m_viewer = std::make_unique<HistoryWindow>(m_year.session());
        m_viewer->FindPreviousWork();
        QApplication::sendPostedEvents();
        m_viewer->repaint();
    }
    qint64 finish() override {
        QApplication::processEvents();
        return m_viewer->findChild<QComboBox*>()->count();
    }

private:
    QuietYear m_year;
    std::unique_ptr<HistoryWindow> m_viewer;
};

class RawHistory : public Work {
public:
    explicit RawHistory(const QString& path) : m_database(path) {
        m_box.resize(m_box.sizeHint());
        m_box.show();
        QApplication::processEvents();
    }
    void run() override {
        const RawStatement rows = m_database.prepare(
            "SELECT Class1, Class2, Class3, Class4, Class5, Class6, Lesson1, Homework1, Lesson2, "
            "Homework2, Lesson3, Homework3, Lesson4, Homework4, Lesson5, Homework5, Lesson6, "
            "Homework6 FROM Planning WHERE '7M2' IN (Class1, Class2, Class3, Class4, Class5, "
            "Class6) ORDER BY PlanDate");
        m_lessons = 0;
        while (m_database.step(rows)) {
            m_bytes += readColumns(rows);
            for (int column = 0; column < periods; ++column)
                m_lessons += textOf(rows, column) == classCode;
        }
        m_box.setHtml(m_html);
    }
    qint64 finish() override {
        QApplication::processEvents();
        return m_lessons;
    }

private:
    RawDatabase m_database;
    QTextEdit m_box;
    QString m_html = lessonHtml(1);
    qint64 m_lessons = 0;
    qint64 m_bytes = 0; ///< so that nothing can be left out
};

} // namespace

std::vector<Figure> searchFigures(const QString& folder) {
    constexpr int rounds = 20;
    constexpr double huntBound = 1.3;
    constexpr double historyBound = 2;
    const QString path =
        makeFullYear(folder + u"/past_year.mdb"_s, periods, FullYearSheets, lessonFields(periods));
    const QString rawPath = folder + u"/raw_past_year.mdb"_s;
    QFile::copy(path, rawPath);
    std::vector<Figure> figures;
    figures.push_back({u"find through 190 sheets"_s, huntBound, rounds,
                       std::make_unique<Hunt>(path), std::make_unique<RawReading>(rawPath)});
    figures.push_back({u"history of a class"_s, historyBound, rounds,
                       std::make_unique<ShowHistory>(path), std::make_unique<RawHistory>(rawPath)});
    return figures;
}
