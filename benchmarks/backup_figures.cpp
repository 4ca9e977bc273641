// The whole year copied and compacted, as the program does when it ends.

#include "figures.h"
#include "quiet_session.h"
#include "raw_library.h"
#include "sample_year.h"

#include "frame/year_roads.h"
#include "store/table_names.h"
#include "year/backup.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype fullYearBytes = qsizetype{20} * 1024 * 1024;

/// Fills every text of every sheet alike, so that the file gets as large as a year full of lessons.
void fillSheets(const QString& path) {
    const dao::DBEngine engine;
    const dao::Database database = engine.OpenDatabase(path);
    dao::Transaction transaction(database);
    dao::Recordset sheets = database.OpenRecordset(PlanningTable);
    sheets.MoveLast();
    const qsizetype rows = sheets.RecordCount();
    QStringList memos;
    for (const dao::Field& field : database.TableDefs()[PlanningTable].Fields())
        if (field.Type == dao::DataType::Memo)
            memos << field.Name;
    const QString text(fullYearBytes / (rows * memos.size()), u'x');
    for (sheets.MoveFirst(); !sheets.EOF_(); sheets.MoveNext()) {
        sheets.Edit();
        for (const QString& memo : memos)
            sheets.SetCollect(memo, text);
        sheets.Update();
    }
    transaction.commit();
}

/// Starts each run on a fresh copy of the full year, without a backup.
class YearCopyWork : public Work {
public:
    YearCopyWork(QString original, const QString& folder)
        : m_original(std::move(original))
        , m_folder(folder)
        , m_path(m_folder.filePath(u"year.mdb"_s)) {}

    void prepare() override {
        m_folder.removeRecursively();
        if (!m_folder.mkpath(u"backup"_s) || !QFile::copy(m_original, m_path))
            throw std::runtime_error("The full year could not be copied.");
    }
    qint64 finish() override { return countRows(m_path) + countRows(backupPath()); }

protected:
    const QString& path() const { return m_path; }
    QString backupFolder() const { return m_folder.filePath(u"backup/"_s); }
    QString backupPath() const { return backupFolder() + u"year.001"_s; }

private:
    QString m_original;
    QDir m_folder;
    QString m_path;
};

class Backup : public YearCopyWork {
public:
    Backup(QString original, const QString& folder)
        : YearCopyWork(std::move(original), folder + u"/backed_up"_s), m_session(folder) {
        m_session.session().FolderDefaults[BackupFolder].folder = backupFolder();
    }

    void run() override {
        if (!BackupAndCompact(backupContext(m_session.session()), path(), true, {}))
            throw std::runtime_error("The full year could not be backed up.");
    }

private:
    QuietSession m_session;
};

class RawBackup : public YearCopyWork {
public:
    RawBackup(QString original, const QString& folder)
        : YearCopyWork(std::move(original), folder + u"/copied"_s) {}

    void run() override {
        RawDatabase database(path());
        database.copyTo(backupPath());
        database.execute("VACUUM");
    }
};

} // namespace

std::vector<Figure> backupFigures(const QString& folder) {
    const QString year = folder + u"/full.mdb"_s;
    createSampleYear(year);
    fillSheets(year);

    std::vector<Figure> figures;
    figures.push_back({u"back up and compact"_s, 2, 5, std::make_unique<Backup>(year, folder),
                       std::make_unique<RawBackup>(year, folder)});
    return figures;
}
