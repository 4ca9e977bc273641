#include "store/engine/engine.h"

#include "store/engine/copy.h"
#include "store/engine/database_core.h"
#include "store/engine/error.h"
#include "store/engine/file_check.h"
#include "store/engine/file_kind.h"
#include "store/engine/files.h"
#include "store/engine/jet_import.h"
#include "store/engine/jet_reader.h"

#include <QFileInfo>

#include <unistd.h>

#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

void openOwnFile(DatabaseCore& core, FileKind kind) {
    connectOwnFile(core, kind);
    if (!hasWholePages(*core.file, kind))
        throw EngineError(DamagedDatabase, u"The file is damaged: its end is missing."_s);
    core.connection.checkStructure();
    if (!core.readOnly)
        core.connection.execute(u"PRAGMA journal_mode = DELETE"_s);
}

void openJetFile(DatabaseCore& core) {
    const QByteArray start = core.file->read(headerBytes);
    checkJetPages(start, core.file->size());
    const QString password = jetPassword(start);
    if (password != core.password && !password.isEmpty())
        throw EngineError(WrongPassword, u"A password is needed."_s);
    core.password = password;
    if (!password.isEmpty())
        leaveNoImage();
    core.connection = Connection({}, Connection::Mode::Memory, {});
    fillFromJet(core.connection, readJetFile(core.file->read(core.file->size())));
    core.jetFile = true;
}

} // namespace

QString connectText(const QString& password) {
    return password.isEmpty() ? QString() : u";pwd="_s + password;
}

/// What the handles on one workspace share.
class WorkspaceCore {
public:
    QString name;
    QList<std::weak_ptr<DatabaseCore>> databases;
    int depth = 0;

    QList<std::shared_ptr<DatabaseCore>> open() const {
        QList<std::shared_ptr<DatabaseCore>> found;
        for (const auto& entry : databases) {
            auto database = entry.lock();
            if (database && database->isOpen())
                found += std::move(database);
        }
        return found;
    }

    void add(const std::shared_ptr<DatabaseCore>& database) {
        databases.removeIf([](const auto& entry) { return entry.expired(); });
        databases += database;
    }
};

Workspace::Workspace(std::shared_ptr<WorkspaceCore> core) : m_core(std::move(core)) {}

QString Workspace::Name() const {
    return m_core->name;
}

QList<Database> Workspace::Databases() const {
    QList<Database> handles;
    for (auto& database : m_core->open())
        handles += Database(std::move(database));
    return handles;
}

Database Workspace::OpenDatabase(const QString& path, bool exclusive, bool readOnly,
                                 const QString& connect) const {
    const QString absolute = checkedPath(path);
    auto file = OpenFile::acquire(absolute);
    if (exclusive && file->handles > 0)
        throw EngineError(OpenedExclusively, u"The file is already open."_s);
    const FileKind kind = kindOf(*file, absolute);
    if (!readOnly && kind != FileKind::Jet) // which is only read
        checkWritable(absolute);
    auto core = std::make_shared<DatabaseCore>(absolute, passwordOf(connect),
                                               readOnly || kind == FileKind::Jet, std::move(file));
    if (kind == FileKind::Jet)
        openJetFile(*core);
    else
        openOwnFile(*core, kind);
    if (!core->readOnly) // the copy of a change of password that was cut off, maybe an open one
        removeDatabaseFile(unfinishedName(absolute));
    m_core->add(core);
    return Database(std::move(core));
}

Database Workspace::CreateDatabase(const QString& path, const QString& /*locale*/,
                                   int /*options*/) const {
    const QString absolute = QFileInfo(path).absoluteFilePath();
    if (QFileInfo::exists(absolute))
        throw EngineError(FileExists, u"The file already exists."_s);
    makePrivateFile(absolute);
    auto file = OpenFile::acquire(absolute);
    Connection connection(absolute, Connection::Mode::Existing, {});
    // A mark in the header makes the file one that can be recognised before it has a table.
    connection.execute(u"PRAGMA synchronous = OFF"_s); // there is nothing to lose yet
    connection.execute(u"PRAGMA application_id = %1"_s.arg(applicationMark));
    connection.execute(u"PRAGMA synchronous = FULL"_s);
    auto core = std::make_shared<DatabaseCore>(absolute, QString(), false, std::move(file));
    core->connection = std::move(connection);
    m_core->add(core);
    return Database(std::move(core));
}

void Workspace::BeginTrans() const {
    for (const auto& database : m_core->open()) {
        if (!database->readOnly)
            database->connection.begin();
    }
    ++m_core->depth;
}

void Workspace::CommitTrans() const {
    if (m_core->depth == 0)
        throw EngineError(NoTransaction, u"No transaction was begun."_s);
    for (const auto& database : m_core->open())
        database->commit();
    --m_core->depth;
}

void Workspace::Rollback() const {
    if (m_core->depth == 0)
        throw EngineError(NoTransaction, u"No transaction was begun."_s);
    --m_core->depth;
    for (const auto& database : m_core->open())
        database->rollback();
}

void Workspace::Close() {
    while (m_core->depth > 0)
        Rollback();
    for (const auto& database : m_core->open())
        database->close();
}

DBEngine::DBEngine() {
    // A file that reaches a limit of its size is a failed write like any other, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    m_default = CreateWorkspace(u"#Default Workspace#"_s, {}, {});
}

QString DBEngine::Version() const {
    return u"3.6"_s;
}

Workspace DBEngine::Workspaces(int index) const {
    if (index != 0)
        throw EngineError(NoSuchItem, u"There is no workspace %1."_s.arg(index));
    return m_default;
}

Workspace DBEngine::CreateWorkspace(const QString& name, const QString& /*user*/,
                                    const QString& /*password*/) {
    auto core = std::make_shared<WorkspaceCore>();
    core->name = name;
    return Workspace(std::move(core));
}

Database DBEngine::OpenDatabase(const QString& path, bool exclusive, bool readOnly,
                                const QString& connect) const {
    return m_default.OpenDatabase(path, exclusive, readOnly, connect);
}

bool DBEngine::OpensAtOnce(const QString& path) const {
    const QString absolute = checkedPath(path);
    return kindOf(*OpenFile::acquire(absolute), absolute) == FileKind::Plain;
}

Database DBEngine::CreateDatabase(const QString& path, const QString& locale, int options) const {
    return m_default.CreateDatabase(path, locale, options);
}

void DBEngine::CompactDatabase(const QString& source, const QString& destination,
                               const QString& /*locale*/, int /*options*/,
                               const QString& sourceConnect) const {
    if (QFileInfo::exists(destination))
        throw EngineError(FileExists, u"The file already exists."_s);
    Database database = m_default.OpenDatabase(source, false, true, sourceConnect);
    const QString copy = unfinishedName(destination);
    writeCopy(database.m_core->connection, copy, database.m_core->password);
    if (!database.isJetFile()) // whose copy is one to work with
        makeAsStrict(copy, database.Name());
    try {
        replaceFile(copy, destination);
    } catch (const EngineError&) {
        removeDatabaseFile(copy);
        throw;
    }
}

FileCheck DBEngine::CheckDatabase(const QString& path, const QString& connect) const {
    const QString absolute = checkedPath(path);
    auto file = OpenFile::acquire(absolute);
    const FileKind kind = kindOf(*file, absolute);
    DatabaseCore core(absolute, passwordOf(connect), true, std::move(file));
    if (kind == FileKind::Jet)
        openJetFile(core);
    else
        connectOwnFile(core, kind);
    FileCheck check = checkTables(core.connection);
    if (check.fault.isEmpty() && kind != FileKind::Jet && !hasWholePages(*core.file, kind))
        check.fault = u"The file is damaged: its end is missing."_s;
    return check;
}

} // namespace dao
