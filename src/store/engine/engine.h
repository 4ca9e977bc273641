#pragma once

#include "store/engine/database.h"
#include "store/engine/repair.h"

#include <QList>

#include <memory>

namespace dao {

class PageFile;
class WorkspaceCore;

/// Stands in the header of a file that this engine made: "ORVA".
inline constexpr int applicationMark = 0x4F525641;

/// The text that CreateDatabase takes for the language of a file.
inline constexpr QStringView GeneralLocale = u";LANGID=0x0409;CP=1252;COUNTRY=0";

/// The connect text for a password: ";pwd=" and the password, empty without one.
QString connectText(const QString& password);

/// A group of open databases whose changes can be made whole or not at all.
class Workspace {
public:
    Workspace() = default;

    QString Name() const;
    QList<Database> Databases() const; ///< those open

    /// Opens a file. Raises 3024 for no such file, 3031 for a missing or wrong password, 3045 or
    /// 3356 when another process has it, 3049 or 3343 for what is no database or a damaged one,
    /// 3051 when it can't be opened for writing. `exclusive` refuses a file that this process has
    /// open already (3356). To
    /// open it for writing removes what a change of password or a repair that was cut off left
    /// beside it.
    Database OpenDatabase(const QString& path, bool exclusive = false, bool readOnly = false,
                          const QString& connect = {}) const;
    /// Makes an empty file and opens it. Raises 3204 when the path is taken.
    Database CreateDatabase(const QString& path, const QString& locale, int options = 0) const;

    void BeginTrans() const;
    void CommitTrans() const; ///< raises 3034 with none begun
    void Rollback() const;    ///< raises 3034 with none begun
    void Close();             ///< undoes what is open and closes the databases

private:
    friend class DBEngine;
    explicit Workspace(std::shared_ptr<WorkspaceCore> core);
    std::shared_ptr<WorkspaceCore> m_core;
};

/// How a table of a file was found.
struct TableCheck {
    QString table;
    qint64 records = 0; ///< up to the first with a fault
    QString fault;      ///< empty for a table that is whole
};

/// How a file was found.
struct FileCheck {
    QList<TableCheck> tables;
    QString fault; ///< of the file beyond what its tables tell; empty for none
};

/// The engine. A process makes one and hands it to who opens files.
class DBEngine {
public:
    DBEngine();

    QString Version() const;               ///< "3.6"
    Workspace Workspaces(int index) const; ///< 0 is the default one; raises 3265 beyond
    Workspace CreateWorkspace(const QString& name, const QString& user, const QString& password);

    Database OpenDatabase(const QString& path, bool exclusive = false, bool readOnly = false,
                          const QString& connect = {}) const;
    /// Whether a file is of this engine's own and without a password. Others take longer to open,
    /// or need an answer first. Raises what OpenDatabase raises for a file that can't be read.
    bool OpensAtOnce(const QString& path) const;
    Database CreateDatabase(const QString& path, const QString& locale, int options = 0) const;
    /// Writes a compact copy. The password stands in `sourceConnect` (";pwd=..."); the copy has the
    /// same. Raises 3204 when the destination exists and what OpenDatabase raises for the source,
    /// which stays untouched; a failure leaves no destination behind.
    void CompactDatabase(const QString& source, const QString& destination,
                         const QString& locale = {}, int options = 0,
                         const QString& sourceConnect = {}) const;
    /// Reads all records of all tables, of a damaged file as far as that goes, and checks them
    /// against indexes, rules and relations. Raises what OpenDatabase raises, but for damage only
    /// where the tables can't be told. The file stays as it is.
    FileCheck CheckDatabase(const QString& path, const QString& connect = {}) const;
    /// Mends a damaged file in place, whatever of its pages is damaged or missing: all records on
    /// those that are whole are brought back, and what CheckDatabase finds wrong is put right. The
    /// damaged file stays as `keptAs` unless that is empty; a file that is whole stays as it is.
    /// Raises 3343 where nothing can be read, 3031 for a missing or wrong password, 3182 on a full
    /// disk; the file then stays as it was.
    RepairReport RepairDatabase(const QString& path, const QString& connect = {},
                                const QString& keptAs = {},
                                const RepairKnowledge& knowledge = {}) const;
    /// Whether a file that does not open looks as if a repair could bring something back.
    bool MayBeRepaired(const QString& path) const;

private:
    static RepairReport writeSalvaged(const PageFile& pages, const QString& path,
                                      const QString& password, const RepairKnowledge& knowledge);

    Workspace m_default;
};

} // namespace dao
