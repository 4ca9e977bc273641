// One class of eight archived, beside a plain copy of the year's file and its compaction by the raw
// library.

#include "figures.h"
#include "full_year.h"
#include "quiet_session.h"
#include "raw_library.h"

#include "year/class_archive.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Ends in an archive, of which only the sheets are counted: the other side has all classes still.
class ArchiveWork : public Work {
public:
    explicit ArchiveWork(QString target) : m_target(std::move(target)) {}

    void prepare() override { QFile::remove(m_target); }
    qint64 finish() override {
        return RawDatabase(m_target).firstInteger("SELECT count(*) FROM Planning");
    }

protected:
    const QString& target() const { return m_target; }

private:
    QString m_target;
};

class Archive : public ArchiveWork {
public:
    Archive(const QString& year, const QString& folder)
        : ArchiveWork(folder + u"/archive.mdb"_s), m_session(folder) {
        m_session.session().FolderDefaults[BackupFolder].folder = folder + u'/';
        if (m_session.session().OpenDatabaseFile(year, {}) != OpenDone)
            throw std::runtime_error("The year of eight classes does not open.");
    }

    void run() override {
        Session& session = m_session.session();
        if (!ArchiveClass(session, Load_data(session.CurrentDB).constFirst(), target()))
            throw std::runtime_error("The class could not be archived.");
    }

private:
    QuietSession m_session;
};

class RawCopy : public ArchiveWork {
public:
    RawCopy(QString year, const QString& folder)
        : ArchiveWork(folder + u"/copy.mdb"_s), m_year(std::move(year)) {}

    void run() override {
        if (!QFile::copy(m_year, target()))
            throw std::runtime_error("The year could not be copied.");
        RawDatabase(target()).execute("VACUUM");
    }

private:
    QString m_year;
};

} // namespace

std::vector<Figure> archiveFigures(const QString& folder) {
    const QString year = folder + u"/classes.mdb"_s;
    const QString other = folder + u"/classes-copied.mdb"_s;
    makeYearOfClasses(year);
    QFile::copy(year, other);
    std::vector<Figure> figures;
    figures.push_back({u"archive of one class out of 8"_s, 3, 10,
                       std::make_unique<Archive>(year, folder),
                       std::make_unique<RawCopy>(other, folder)});
    return figures;
}
