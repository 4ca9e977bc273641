// Planning over a year of full sheets: the next sheet shown in the boxes of a sheet of seven
// periods, beside the same texts as HTML in the same boxes; and an item added to every other week,
// beside the raw library reading and writing the same rows.

#include "controls/bound_rich_text.h"
#include "core/session.h"
#include "figures.h"
#include "full_year.h"
#include "planning/sheet_events.h"
#include "quiet_session.h"
#include "raw_library.h"
#include "sample_year.h"
#include "store/engine/engine.h"

#include <QApplication>
#include <QDate>
#include <QFile>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int periods = 7;
constexpr int boxes = 2 * periods + 3;

/// The boxes of a sheet in a window.
class Boxes {
public:
    Boxes() {
        auto* layout = new QVBoxLayout(&m_window);
        for (int i = 0; i < boxes; ++i) {
            all.push_back(new RichTextBox(u"Lesson"_s));
            layout->addWidget(all.back());
        }
        m_window.resize(800, 1200);
        m_window.show();
        QApplication::processEvents();
    }
    qint64 characters() const {
        qint64 count = 0;
        for (const RichTextBox* box : all)
            count += box->document()->characterCount();
        return count;
    }
    std::vector<RichTextBox*> all;

private:
    QWidget m_window;
};

class NextSheet : public Work {
public:
    explicit NextSheet(const QString& path) {
        const QStringList fields = sheetFields(periods);
        m_year = m_engine.OpenDatabase(makeFullYear(path, periods, 2, fields));
        for (size_t i = 0; i < m_boxes.all.size(); ++i) {
            m_bound.push_back(std::make_unique<BoundRichText>(*m_boxes.all[i]));
            m_binding.bind(fields.at(static_cast<qsizetype>(i)), *m_bound.back());
        }
        m_rows = m_year.OpenRecordset(u"SELECT * FROM Planning ORDER BY PlanDate"_s);
        m_binding.setData(m_rows);
    }
    void prepare() override {
        m_rows.MoveFirst();
        m_binding.load();
        QApplication::processEvents();
    }
    void run() override {
        m_binding.leave();
        m_rows.MoveNext();
        m_binding.load();
    }
    qint64 finish() override { return m_boxes.characters(); }

private:
    dao::DBEngine m_engine;
    dao::Database m_year;
    dao::Recordset m_rows;
    Boxes m_boxes;
    ConsolePrompts m_prompts;
    std::vector<std::unique_ptr<BoundRichText>> m_bound;
    RowBinding m_binding{m_prompts};
};

class HtmlSheet : public Work {
public:
    void prepare() override { show(m_before); }
    void run() override { show(m_html); }
    qint64 finish() override { return m_boxes.characters(); }

private:
    void show(const QString& html) {
        for (RichTextBox* box : m_boxes.all)
            box->document()->setHtml(html);
    }
    Boxes m_boxes;
    QString m_before = lessonHtml(0);
    QString m_html = lessonHtml(1);
};

/// Both sides begin with the same file, copied anew.
class YearWork : public Work {
public:
    YearWork(const QString& original, const QString& path) : m_original(original), m_path(path) {}
    void prepare() override {
        QFile::remove(m_path);
        QFile::copy(m_original, m_path);
    }

protected:
    QString m_original;
    QString m_path;
};

constexpr int firstWeek = 1;
const QString fortnightlyField = u"Lesson1"_s;

class FortnightlyAdd : public YearWork {
public:
    using YearWork::YearWork;
    void prepare() override {
        YearWork::prepare();
        m_year = m_engine.OpenDatabase(m_path);
        dao::Recordset rows = m_year.OpenRecordset(u"Planning"_s);
        m_item = {{SheetBox::Lesson, 1},
                  u"Quiz"_s,
                  u"{\\rtf1\\ansi\\pard\\plain\\f0\\fs20\\b Quiz\\par }"_s,
                  rows[u"PlanDate"].text(),
                  firstWeek};
    }
    void run() override { addToEveryOtherWeek(m_year, m_item); }
    qint64 finish() override {
        m_year.Close();
        return 1;
    }

private:
    dao::DBEngine m_engine;
    dao::Database m_year;
    SheetSelection m_item;
};

/// Reads what the add reads, and writes the rows that it writes with as much text.
class RawAdd : public YearWork {
public:
    using YearWork::YearWork;
    void prepare() override {
        YearWork::prepare();
        m_database = std::make_unique<RawDatabase>(m_path);
    }
    void run() override {
        m_database->execute("BEGIN");
        const RawStatement read =
            m_database->prepare("SELECT ID, PlanDate, Week, Lesson1 FROM Planning ORDER BY ID");
        const RawStatement write =
            m_database->prepare("UPDATE Planning SET Lesson1 = ? WHERE ID = ?");
        while (m_database->step(read)) {
            const auto* date = reinterpret_cast<const char*>(sqlite3_column_text(read.get(), 1));
            const bool isTaken = isSameWeekday(date) && sqlite3_column_int(read.get(), 2) % 2 == 1;
            readColumns(read);
            if (!isTaken)
                continue;
            sqlite3_bind_value(write.get(), 1, sqlite3_column_value(read.get(), 3));
            sqlite3_bind_int64(write.get(), 2, sqlite3_column_int64(read.get(), 0));
            m_database->step(write);
            sqlite3_reset(write.get());
        }
        m_database->execute("COMMIT");
    }
    qint64 finish() override {
        m_database.reset();
        return 1;
    }

private:
    /// As the first sheet of the sample year, a Thursday.
    static bool isSameWeekday(const char* planDate) {
        const QDate date = QDate::fromString(u"20"_s + QString::fromLatin1(planDate), Qt::ISODate);
        return date.dayOfWeek() == Qt::Thursday;
    }
    std::unique_ptr<RawDatabase> m_database;
};

} // namespace

std::vector<Figure> planningFigures(const QString& folder) {
    constexpr int rounds = 20;
    constexpr double nextSheetBound = 1.2;
    constexpr double fortnightlyBound = 6;
    const QString full =
        makeFullYear(folder + u"/full_year.mdb"_s, periods, FullYearSheets, {fortnightlyField});
    std::vector<Figure> figures;
    figures.push_back({u"next sheet"_s, nextSheetBound, rounds,
                       std::make_unique<NextSheet>(folder + u"/next_sheet.mdb"_s),
                       std::make_unique<HtmlSheet>()});
    figures.push_back({u"fortnightly add"_s, fortnightlyBound, rounds,
                       std::make_unique<FortnightlyAdd>(full, folder + u"/add.mdb"_s),
                       std::make_unique<RawAdd>(full, folder + u"/raw_add.mdb"_s)});
    return figures;
}
