// The weeks of a year changed from its second one on, without the backups and the compaction,
// beside the raw library building the same registers again and writing the same sheets.

#include "figures.h"
#include "full_year.h"
#include "raw_library.h"

#include "core/silent_seams.h"
#include "store/engine/engine.h"
#include "store/table_names.h"
#include "year/week_swap.h"

#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr short fromWeek = 2;

void copyAnew(const QString& original, const QString& path) {
    QFile::remove(path);
    if (!QFile::copy(original, path))
        throw std::runtime_error("The year could not be copied.");
}

/// All that a change has written: the letters and classes of the sheets, and the columns of the
/// registers, in one number.
qint64 sizeOfChange(RawDatabase& database) {
    const RawStatement sheets =
        database.prepare("SELECT ABWeek = 'A', Class1, Class2, Class3, Class4, Class5, Class6, "
                         "Lesson1, Notes FROM Planning");
    qint64 size = 0;
    while (database.step(sheets))
        size += readColumns(sheets);
    return size + database.firstInteger("SELECT sum(length(sql)) FROM sqlite_master WHERE name "
                                        "LIKE 'REG%' AND type = 'table'");
}

class WeekWork : public Work {
public:
    WeekWork(QString original, QString path)
        : m_original(std::move(original)), m_path(std::move(path)) {}

    void prepare() override { copyAnew(m_original, m_path); }

protected:
    const QString& path() const { return m_path; }

private:
    QString m_original;
    QString m_path;
};

class Change : public WeekWork {
public:
    using WeekWork::WeekWork;

    void prepare() override {
        WeekWork::prepare();
        m_database = m_engine.OpenDatabase(path());
        m_periods = static_cast<int>(
            m_database.OpenRecordset(AdminTable).Collect(u"PeriodsPerDay").toInteger());
    }
    void run() override {
        swapWeeks(m_database, m_periods, fromWeek, m_progress);
        if (!addLessonColumns(m_database, m_periods, m_progress).isEmpty())
            throw std::runtime_error("A class of the sample year has too many lessons.");
    }
    qint64 finish() override {
        m_database.Close();
        RawDatabase changed(path());
        return sizeOfChange(changed);
    }

private:
    dao::DBEngine m_engine;
    dao::Database m_database;
    SilentProgress m_progress;
    int m_periods = 0;
};

/// The registers and the sheets as one half of a change leaves them.
struct HalfChanged {
    std::vector<RawTable> registers; ///< without their rows
    RawTable sheets;
};

HalfChanged readHalf(const QString& path) {
    RawDatabase database(path);
    HalfChanged half;
    for (RawTable& table : readTables(database)) {
        if (table.name.startsWith("REG_")) {
            table.rows.clear();
            half.registers.push_back(std::move(table));
        } else if (table.name == "Planning") {
            half.sheets = std::move(table);
        }
    }
    return half;
}

class RawChange : public WeekWork {
public:
    /// Learns from a change what each half leaves.
    RawChange(const QString& original, const QString& copy) : WeekWork(original, copy) {
        prepare();
        SilentProgress progress;
        dao::Database database = dao::DBEngine().OpenDatabase(path());
        const int periods = static_cast<int>(
            database.OpenRecordset(AdminTable).Collect(u"PeriodsPerDay").toInteger());
        swapWeeks(database, periods, fromWeek, progress);
        database.Close();
        m_first = readHalf(path());
        database = dao::DBEngine().OpenDatabase(path());
        addLessonColumns(database, periods, progress);
        database.Close();
        m_second = readHalf(path());
    }

    void prepare() override {
        m_database.reset();
        WeekWork::prepare();
        m_database = std::make_unique<RawDatabase>(path());
    }
    void run() override {
        m_database->execute("BEGIN IMMEDIATE");
        writeSheets();
        rebuild(m_first);
        m_database->execute(
            "CREATE TABLE mark (week INTEGER); INSERT INTO mark VALUES (2); COMMIT");
        m_database->execute("BEGIN IMMEDIATE");
        rebuild(m_second);
        m_database->execute("DROP TABLE mark; COMMIT");
    }
    qint64 finish() override { return sizeOfChange(*m_database); }

private:
    QByteArrayList columnsOf(const QByteArray& table) {
        QByteArrayList columns;
        const RawStatement list = m_database->prepare("PRAGMA table_info(\"" + table + "\")");
        while (m_database->step(list))
            columns += reinterpret_cast<const char*>(sqlite3_column_text(list.get(), 1));
        return columns;
    }

    void writeSheets() {
        QByteArrayList columns = columnsOf("Planning");
        QByteArrayList sets;
        for (qsizetype i = 1; i < columns.size(); ++i)
            sets += '"' + columns[i] + "\" = ?" + QByteArray::number(i + 1);
        const RawStatement update =
            m_database->prepare("UPDATE Planning SET " + sets.join(", ") + " WHERE ID = ?1");
        for (const std::vector<RawValue>& row : m_first.sheets.rows) {
            for (size_t column = 0; column < row.size(); ++column)
                sqlite3_bind_value(update.get(), static_cast<int>(column) + 1, row[column].get());
            m_database->step(update);
            sqlite3_reset(update.get());
        }
    }

    /// Gives each register the columns that it has at the end of a half.
    void rebuild(const HalfChanged& half) {
        for (const RawTable& table : half.registers) {
            const QByteArrayList before = columnsOf(table.name);
            QByteArray definition = table.definition;
            definition.replace(definition.indexOf(table.name), table.name.size(), "rebuilt");
            m_database->execute(definition);
            QByteArrayList kept;
            for (const QByteArray& column : columnsOf("rebuilt")) {
                if (before.contains(column))
                    kept += '"' + column + '"';
            }
            const QByteArray names = kept.join(", ");
            m_database->execute("INSERT INTO rebuilt (" + names + ") SELECT " + names + " FROM \"" +
                                table.name + "\"; DROP TABLE \"" + table.name +
                                "\"; ALTER TABLE rebuilt RENAME TO \"" + table.name + '"');
        }
    }

    std::unique_ptr<RawDatabase> m_database;
    HalfChanged m_first;
    HalfChanged m_second;
};

} // namespace

std::vector<Figure> weekFigures(const QString& folder) {
    const QString year = folder + u"/weeks.mdb"_s;
    makeYearOfClasses(year);
    std::vector<Figure> figures;
    figures.push_back({u"week change from week 2"_s, 3, 10,
                       std::make_unique<Change>(year, folder + u"/weeks-changed.mdb"_s),
                       std::make_unique<RawChange>(year, folder + u"/weeks-raw.mdb"_s)});
    return figures;
}
