// The class window: the register opened and painted, and the structure of the grades changed.

#include "figures.h"
#include "quiet_session.h"
#include "raw_library.h"
#include "sample_class.h"

#include "classes/grade_columns.h"
#include "classes/register_lessons.h"
#include "classes/screens/class_window.h"
#include "core/console_prompts.h"
#include "core/window_placement.h"

#include <QApplication>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize(1000, 700);

void drawWindow(QWidget& window) {
    QApplication::sendPostedEvents();
    window.repaint();
    QApplication::processEvents();
}

/// From the first page to the register.
class OpenView : public Work {
public:
    explicit OpenView(const QString& path) : m_quiet(path + u".settings"_s) {
        Session& session = m_quiet.session();
        session.CurrentDB = session.Engine().OpenDatabase(path);
        m_window = std::make_unique<ClassWindow>(session);
        m_window->resize(windowSize);
        m_window->show();
        drawWindow(*m_window);
    }
    void prepare() override {
        m_window->showFirstPage();
        drawWindow(*m_window);
    }
    void run() override {
        m_window->showView(RegisterView);
        drawWindow(*m_window);
    }
    qint64 finish() override { return m_window->desk().records().rowCount(); }

private:
    QuietSession m_quiet;
    std::unique_ptr<ClassWindow> m_window;
};

/// The same join read into the toolkit's own model and shown by its own view, whose columns are as
/// narrow, so that it paints as many cells.
class RawView : public Work {
public:
    explicit RawView(const QString& path) : m_database(path) {
        m_view.horizontalHeader()->setMinimumSectionSize(1);
        m_view.horizontalHeader()->setDefaultSectionSize(MarkColumnWidth / TwipsPerPixel);
        m_view.resize(windowSize);
        m_view.show();
        drawWindow(m_view);
    }
    void prepare() override {
        m_view.setModel(nullptr);
        drawWindow(m_view);
    }
    void run() override {
        m_model = std::make_unique<QStandardItemModel>();
        const RawStatement rows = m_database.prepare(
            "SELECT Class_7A.Surname, Class_7A.Firstname, Class_7A.Tutor, REG_7A.* FROM Class_7A "
            "INNER JOIN REG_7A ON Class_7A.ID = REG_7A.ID ORDER BY Surname");
        while (m_database.step(rows)) {
            QList<QStandardItem*> items;
            for (int column = 0; column < sqlite3_column_count(rows.get()); ++column) {
                const auto* text = sqlite3_column_text(rows.get(), column);
                items += new QStandardItem(QString::fromUtf8(reinterpret_cast<const char*>(text)));
            }
            m_model->appendRow(items);
        }
        m_view.setModel(m_model.get());
        drawWindow(m_view);
    }
    qint64 finish() override { return m_model->rowCount(); }

private:
    RawDatabase m_database;
    std::unique_ptr<QStandardItemModel> m_model;
    QTableView m_view;
};

/// A grade column added, moved and removed.
class GradeColumns : public Work {
public:
    explicit GradeColumns(const QString& path) : m_database(m_engine.OpenDatabase(path)) {}
    void run() override {
        const QString title = u"New test"_s;
        addGradeColumn(m_database, SampleClassCode, {title, dao::DataType::Text, 50, {}},
                       m_prompts);
        MoveColumn(m_database, SampleClassCode, title, MoveDirection::Left);
        removeGradeColumns(m_database, SampleClassCode, {title}, m_prompts);
    }
    qint64 finish() override { return SampleClassGrades; }

private:
    dao::DBEngine m_engine;
    dao::Database m_database;
    ConsolePrompts m_prompts;
};

/// The table built again beside itself three times, each in a transaction of its own.
class RawRebuild : public Work {
public:
    explicit RawRebuild(const QString& path) : m_database(path) {
        const RawStatement statement =
            m_database.prepare("SELECT sql FROM sqlite_master WHERE name = 'Marks_7A'");
        m_database.step(statement);
        m_definition = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0));
    }
    void run() override {
        for (int i = 0; i < 3; ++i)
            rebuild();
    }
    qint64 finish() override { return SampleClassGrades; }

private:
    void rebuild() {
        QByteArray definition = m_definition;
        definition.replace("Marks_7A", "Marks_new");
        m_database.execute("BEGIN IMMEDIATE");
        m_database.execute(definition);
        m_database.execute("INSERT INTO Marks_new SELECT * FROM Marks_7A");
        m_database.execute("DROP TABLE Marks_7A");
        m_database.execute("ALTER TABLE Marks_new RENAME TO Marks_7A");
        m_database.execute("COMMIT");
    }

    RawDatabase m_database;
    QByteArray m_definition;
};

} // namespace

std::vector<Figure> classWindowFigures(const QString& folder) {
    std::vector<Figure> figures;
    figures.push_back(
        sampleClassFigure<OpenView, RawView>("register opened and painted", 1.5, 30, folder));
    figures.push_back(
        sampleClassFigure<GradeColumns, RawRebuild>("grade column changed", 3, 30, folder));
    return figures;
}
