// Seating plans of 35 pupils: one opened and painted beside raw SELECT and bare labels, one step of
// a drag beside a frame of the screen, one saved beside raw updates.

#include "core/session.h"
#include "figures.h"
#include "quiet_session.h"
#include "raw_library.h"
#include "sample_year.h"
#include "seating/plan_making.h"
#include "seating/plan_tables.h"
#include "seating/screens/desk_canvas.h"
#include "seating/screens/seating_plan_window.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QMouseEvent>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int pupilCount = 35;
constexpr QSize seatingSize(900, 640);
constexpr QSize canvasTwips(10000, 8000);
const QString fullClass = u"7M2"_s;
const QString emptyClass = u"8M1"_s;
const PlanName fullPlan{.classCode = fullClass};
const std::array<QByteArray, 2> planTableNames{"sPlan_7M2", "sPlanExtra_7M2"};

/// A year in which one class has 35 pupils and another one none, both with their plan.
QString yearWithPlans(const QString& path) {
    createSampleYear(path);
    const dao::DBEngine engine;
    const dao::Database year = engine.OpenDatabase(path);
    dao::Transaction whole(year);
    dao::Recordset pupils = year.OpenRecordset(u"Class_7M2"_s);
    for (int pupil = 1; pupil <= pupilCount; ++pupil) {
        pupils.AddNew();
        pupils.SetCollect(u"Surname", u"Featherstone%1"_s.arg(pupil));
        pupils.SetCollect(u"Firstname", u"Ann"_s);
        pupils.Update();
    }
    pupils.Close();
    whole.commit();
    ConsolePrompts prompts;
    for (const QString& classCode : {fullClass, emptyClass})
        GenerateNewPlan(year, {classCode, {}}, {.canvas = canvasTwips}, prompts);
    return path;
}

void drawSeats() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

/// The window on the class without pupils.
class SeatingShown : public Work {
public:
    explicit SeatingShown(const QString& path) : m_quiet(path + u".settings"_s) {
        Session& session = m_quiet.session();
        session.CurrentDB = session.Engine().OpenDatabase(path);
        m_window = std::make_unique<SeatingPlanWindow>(session);
        m_window->resize(seatingSize);
        m_window->show();
        drawSeats();
    }
    ~SeatingShown() override {
        m_window.reset();
        m_quiet.session().CloseAllDatabases();
    }

protected:
    void choose(const QString& classCode) {
        auto* classes = m_window->findChild<QComboBox*>(u"Sel1"_s);
        emit classes->textActivated(classCode);
        drawSeats();
    }
    DeskCanvas& canvas() { return *m_window->findChild<DeskCanvas*>(); }

private:
    QuietSession m_quiet;
    std::unique_ptr<SeatingPlanWindow> m_window;
};

class PlanOpened : public SeatingShown {
public:
    using SeatingShown::SeatingShown;
    void prepare() override { choose(emptyClass); }
    void run() override { choose(fullClass); }
    qint64 finish() override {
        const QList<DeskBox*> boxes = canvas().findChildren<DeskBox*>();
        return std::count_if(boxes.begin(), boxes.end(),
                             [](const DeskBox* box) { return box->isVisible(); });
    }
};

class BareLabels : public Work {
public:
    explicit BareLabels(const QString& path) : m_year(path) {
        m_room.resize(seatingSize);
        m_room.show();
        drawSeats();
    }
    void prepare() override {
        m_labels.clear();
        drawSeats();
    }
    void run() override {
        for (const QByteArray& table : planTableNames) {
            const RawStatement rows = m_year.prepare("SELECT * FROM " + table);
            while (m_year.step(rows))
                addLabel(rows);
        }
        drawSeats();
    }
    qint64 finish() override { return static_cast<qint64>(m_labels.size()); }

private:
    void addLabel(const RawStatement& row) {
        const auto pixels = [&](int column) {
            constexpr int twipsPerPixel = 15;
            return sqlite3_column_int(row.get(), column) / twipsPerPixel;
        };
        constexpr int caption = 5;
        readColumns(row);
        m_labels.push_back(std::make_unique<QLabel>(QString::fromUtf8(reinterpret_cast<const char*>(
                                                        sqlite3_column_text(row.get(), caption))),
                                                    &m_room));
        m_labels.back()->setGeometry(pixels(1), pixels(2), pixels(3), pixels(4));
        m_labels.back()->show();
    }

    RawDatabase m_year;
    QWidget m_room;
    std::vector<std::unique_ptr<QLabel>> m_labels;
};

class DragStep : public SeatingShown {
public:
    explicit DragStep(const QString& path) : SeatingShown(path) {
        choose(fullClass);
        send(QEvent::MouseButtonPress, m_at);
    }
    void run() override {
        m_at += m_at.x() > 400 ? QPointF(-300, -200) : QPointF(16, 8);
        send(QEvent::MouseMove, m_at);
        drawSeats();
    }
    qint64 finish() override { return 1; }

private:
    void send(QEvent::Type type, QPointF at) {
        QMouseEvent event(type, at, canvas().mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&canvas(), &event);
    }

    QPointF m_at{40, 30};
};

class PlanSaved : public Work {
public:
    explicit PlanSaved(const QString& path) : m_year(m_engine.OpenDatabase(path)) {
        readPlan(m_year, fullPlan, m_desks);
    }
    void prepare() override {
        for (Desk& desk : m_desks)
            desk.place.translate(15, 15);
    }
    void run() override { savePlan(m_year, fullPlan, m_desks); }
    qint64 finish() override { return m_desks.size(); }

private:
    dao::DBEngine m_engine;
    dao::Database m_year;
    Desks m_desks;
};

class RawSaved : public Work {
public:
    explicit RawSaved(const QString& path) : m_year(path) {}
    void run() override {
        qint64 left = ++m_round;
        m_count = 0;
        m_year.execute("BEGIN IMMEDIATE");
        for (const QByteArray& table : planTableNames) {
            const RawStatement rows = m_year.prepare("SELECT ID FROM " + table);
            std::vector<qint64> ids;
            while (m_year.step(rows))
                ids.push_back(sqlite3_column_int64(rows.get(), 0));
            const RawStatement update = m_year.prepare(
                "UPDATE " + table +
                " SET \"left\" = ?2, Top = ?3, Width = 855, Height = 615, Visible = 'True', "
                "Caption = 'Ann' WHERE ID = ?1");
            for (const qint64 id : ids) {
                sqlite3_bind_int64(update.get(), 1, id);
                sqlite3_bind_int64(update.get(), 2, ++left);
                sqlite3_bind_int64(update.get(), 3, ++left);
                m_year.step(update);
                sqlite3_reset(update.get());
                ++m_count;
            }
        }
        m_year.execute("COMMIT");
    }
    qint64 finish() override { return m_count; }

private:
    RawDatabase m_year;
    qint64 m_round = 0;
    qint64 m_count = 0;
};

} // namespace

std::vector<Figure> seatingFigures(const QString& folder) {
    constexpr int rounds = 20;
    constexpr double openBound = 1.5;
    constexpr double saveBound = 3;
    const QString own = folder + u"/seating"_s;
    QDir().mkpath(own);
    const auto year = [&](const QString& name) { return yearWithPlans(own + name); };
    std::vector<Figure> figures;
    figures.push_back({u"plan of 35 desks opened"_s, openBound, rounds,
                       std::make_unique<PlanOpened>(year(u"/a.mdb"_s)),
                       std::make_unique<BareLabels>(year(u"/b.mdb"_s))});
    figures.push_back(
        {u"step of a drag"_s, 1, rounds, std::make_unique<DragStep>(year(u"/c.mdb"_s)), nullptr});
    figures.push_back({u"plan of 35 desks saved"_s, saveBound, rounds,
                       std::make_unique<PlanSaved>(year(u"/d.mdb"_s)),
                       std::make_unique<RawSaved>(year(u"/e.mdb"_s))});
    return figures;
}
