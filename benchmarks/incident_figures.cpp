// The tree of 300 pupils with 1,500 reports loaded, beside two raw SELECT whose texts go into a
// bare tree over a ready-made model.

#include "figures.h"
#include "incidents/incident_tree_model.h"
#include "raw_library.h"
#include "sample_year.h"
#include "store/engine/engine.h"

#include <QApplication>
#include <QDir>
#include <QHash>
#include <QStandardItemModel>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

constexpr int pupilCount = 300;
constexpr int reportsEach = 5;
constexpr QSize treeSize(300, 520);

QString yearWithIncidents(const QString& path) {
    createSampleYear(path);
    dao::DBEngine engine;
    const dao::Database year = engine.OpenDatabase(path);
    Check_Incident_Tables(year);
    dao::Transaction whole(year);
    for (int report = 0; report < pupilCount * reportsEach; ++report) {
        const QString pupil = QString::number(report % pupilCount);
        addIncident(year, {.surname = u"Surname"_s + pupil,
                           .forename = u"Forename"_s + pupil,
                           .date = QDate(2024, 9, 1).addDays(report % 280),
                           .event = u"Disruption of a lesson"_s});
    }
    whole.commit();
    return path;
}

/// A tree shown; its other half says what of.
class ShownTree : public Work {
public:
    qint64 finish() override {
        m_tree.reset();
        return m_pupils;
    }

protected:
    void show(QAbstractItemModel& model) {
        m_pupils = model.rowCount();
        m_tree = std::make_unique<QTreeView>();
        m_tree->setUniformRowHeights(true);
        m_tree->setModel(&model);
        m_tree->resize(treeSize);
        m_tree->show();
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }

private:
    std::unique_ptr<QTreeView> m_tree;
    qint64 m_pupils = 0;
};

class IncidentsLoaded : public ShownTree {
public:
    explicit IncidentsLoaded(const QString& path) : m_year(m_engine.OpenDatabase(path)) {}
    void run() override {
        m_model.setIncidents(readIncidents(m_year));
        show(m_model);
    }

private:
    dao::DBEngine m_engine;
    dao::Database m_year;
    IncidentTreeModel m_model{u"dd/MM/yyyy"_s};
};

class BareIncidents : public ShownTree {
public:
    explicit BareIncidents(const QString& path) : m_year(path) {}
    void run() override {
        m_model.clear();
        QHash<qint64, QStandardItem*> pupils;
        const RawStatement names = m_year.prepare(
            "SELECT ID, Surname, Forename FROM IncidentNames ORDER BY Surname, Forename");
        while (m_year.step(names)) {
            auto* item = new QStandardItem(textOf(names, 2) + u' ' + textOf(names, 1));
            pupils.insert(sqlite3_column_int64(names.get(), 0), item);
            m_model.appendRow(item);
        }
        const RawStatement details = m_year.prepare(
            "SELECT ID, NameID, Date FROM IncidentDetails ORDER BY Date DESC, ID DESC");
        while (m_year.step(details))
            pupils.value(sqlite3_column_int64(details.get(), 1))
                ->appendRow(new QStandardItem(textOf(details, 2)));
        show(m_model);
    }

private:
    RawDatabase m_year;
    QStandardItemModel m_model;
};

} // namespace

std::vector<Figure> incidentFigures(const QString& folder) {
    constexpr double bound = 2;
    constexpr int rounds = 20;
    const QString own = folder + u"/incidents"_s;
    QDir().mkpath(own);
    std::vector<Figure> figures;
    figures.push_back({u"tree of 1,500 reports"_s, bound, rounds,
                       std::make_unique<IncidentsLoaded>(yearWithIncidents(own + u"/a.mdb"_s)),
                       std::make_unique<BareIncidents>(yearWithIncidents(own + u"/b.mdb"_s))});
    return figures;
}
