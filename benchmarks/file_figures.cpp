// Work on whole files: a year created, a year opened, a field added.

#include "figures.h"
#include "quiet_session.h"
#include "raw_library.h"
#include "sample_year.h"

#include "store/table_names.h"
#include "year/year_creation.h"

#include <QFile>

#include <array>
#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Answers the rows of a file that was made, and removes it for the next run.
qint64 countAndRemove(const QString& path) {
    const qint64 rows = countRows(path);
    QFile::remove(path);
    return rows;
}

class Creation : public Work {
public:
    explicit Creation(QString path) : m_path(std::move(path)) {}

    void run() override {
        CreateDB(m_engine, m_answers, m_path, ExistingFile::Keep, m_progress, m_prompts,
                 QLocale::c());
    }
    qint64 finish() override { return countAndRemove(m_path); }

private:
    QString m_path;
    dao::DBEngine m_engine;
    SilentProgress m_progress;
    ConsolePrompts m_prompts;
    YearAnswers m_answers = sampleAnswers();
};

class RawCreation : public Work {
public:
    RawCreation(QString path, const QString& sample) : m_path(std::move(path)) {
        RawDatabase database(sample);
        m_tables = readTables(database);
    }

    void run() override {
        RawDatabase database(m_path, RawDatabase::Mode::Create);
        database.execute("BEGIN IMMEDIATE");
        for (const RawTable& table : m_tables)
            writeTable(database, table);
        database.execute("COMMIT");
    }
    qint64 finish() override { return countAndRemove(m_path); }

private:
    QString m_path;
    std::vector<RawTable> m_tables;
};

class Opening : public Work {
public:
    Opening(QString path, const QString& folder) : m_path(std::move(path)), m_quiet(folder) {}

    void run() override {
        m_session.DatabasePath = m_path;
        if (m_session.OpenDatabaseFile(m_path, {}) != OpenDone)
            throw std::runtime_error("The sample year could not be opened.");
    }
    qint64 finish() override {
        const qsizetype classes = m_session.ClassColours.size();
        m_session.CloseAllDatabases();
        return classes;
    }

private:
    QString m_path;
    QuietSession m_quiet;
    Session& m_session = m_quiet.session();
};

/// Opens the file and reads the tables that the session reads or looks into.
class RawOpening : public Work {
public:
    explicit RawOpening(QString path) : m_path(std::move(path)) {}

    void run() override {
        m_database.emplace(m_path);
        m_classes = 0;
        for (const QStringView table : tables) {
            const RawStatement rows = m_database->prepare("SELECT * FROM " + table.toUtf8());
            while (m_database->step(rows)) {
                readColumns(rows);
                m_classes += table == ClasscodesTable;
            }
        }
    }
    qint64 finish() override {
        m_database.reset();
        return m_classes;
    }

private:
    static inline const std::array<QString, 6> tables{AdminTable,      PlanningTable,
                                                      TermDatesTable,  CalendarTable,
                                                      ClasscodesTable, ExtraTTinfoTable};
    QString m_path;
    std::optional<RawDatabase> m_database;
    qint64 m_classes = 0;
};

const QString wideTable = u"Wide"_s;
constexpr int wideFields = 200;
constexpr int wideRows = 30;

/// A register late in the year: a field a lesson, a row a pupil.
void createWideTable(const QString& path) {
    const dao::DBEngine engine;
    const dao::Database database = engine.CreateDatabase(path, dao::GeneralLocale.toString());
    dao::TableDef table(wideTable);
    for (int i = 1; i <= wideFields; ++i)
        table.Fields().Append(
            dao::TableDef::CreateField(u"Lesson%1"_s.arg(i), dao::DataType::Text, 10));
    database.TableDefs().Append(table);
    dao::Transaction transaction(database);
    dao::Recordset rows = database.OpenRecordset(wideTable);
    for (int row = 0; row < wideRows; ++row) {
        rows.AddNew();
        for (int i = 0; i < wideFields; ++i)
            rows.SetCollect(i, (row + i) % 7 ? u"/"_s : u"O"_s);
        rows.Update();
    }
    transaction.commit();
}

/// Starts each run on a fresh copy of the table's file.
class FieldWork : public Work {
public:
    FieldWork(QString original, QString path)
        : m_original(std::move(original)), m_path(std::move(path)) {}

    void prepare() override {
        QFile::remove(m_path);
        if (!QFile::copy(m_original, m_path))
            throw std::runtime_error("The file could not be copied.");
    }
    qint64 finish() override {
        RawDatabase database(m_path);
        const RawStatement row = database.prepare("SELECT * FROM Wide");
        return sqlite3_column_count(row.get());
    }

protected:
    const QString& path() const { return m_path; }

private:
    QString m_original;
    QString m_path;
};

class FieldAddition : public FieldWork {
public:
    using FieldWork::FieldWork;

    void prepare() override {
        FieldWork::prepare();
        m_database = m_engine.OpenDatabase(path());
    }
    void run() override {
        m_database.TableDefs()[wideTable].Fields().Append(
            dao::TableDef::CreateField(u"Added"_s, dao::DataType::Text, 10));
    }
    qint64 finish() override {
        m_database.Close();
        return FieldWork::finish();
    }

private:
    dao::DBEngine m_engine;
    dao::Database m_database;
};

class RawFieldAddition : public FieldWork {
public:
    using FieldWork::FieldWork;

    void prepare() override {
        FieldWork::prepare();
        m_database.emplace(path());
    }
    void run() override { m_database->execute("ALTER TABLE Wide ADD Added VARCHAR(10)"); }
    qint64 finish() override {
        m_database.reset();
        return FieldWork::finish();
    }

private:
    std::optional<RawDatabase> m_database;
};

} // namespace

std::vector<Figure> fileFigures(const QString& folder) {
    const auto file = [&folder](const char* name) {
        return folder + u'/' + QLatin1StringView(name);
    };
    const QString year = file("sample.mdb");
    createSampleYear(year);
    const QString wide = file("wide.mdb");
    createWideTable(wide);

    std::vector<Figure> figures;
    figures.push_back({u"create the sample year"_s, 3, 25,
                       std::make_unique<Creation>(file("created.mdb")),
                       std::make_unique<RawCreation>(file("raw_created.mdb"), year)});
    figures.push_back({u"open a year"_s, 3, 200, std::make_unique<Opening>(year, folder),
                       std::make_unique<RawOpening>(year)});
    figures.push_back({u"add a field"_s, 4, 50,
                       std::make_unique<FieldAddition>(wide, file("added.mdb")),
                       std::make_unique<RawFieldAddition>(wide, file("raw_added.mdb"))});
    return figures;
}
