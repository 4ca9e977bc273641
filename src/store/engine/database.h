#pragma once

#include "store/engine/recordset.h"
#include "store/engine/table_def.h"

#include <memory>

namespace dao {

class DatabaseCore;
class ReadScope;

/// An open file. A handle: copies speak of the same one; it closes with Close or with the last
/// copy.
class Database {
public:
    Database() = default; ///< none

    bool isOpen() const;
    explicit operator bool() const { return isOpen(); }
    /// The path it was opened by; empty for a closed one.
    QString Name() const;
    bool isReadOnly() const;
    /// Whether it is a genuine Jet file, which is only read.
    bool isJetFile() const;

    /// Opens a table by its name, or a SELECT of Jet SQL. Raises 3078 for no such table, and what
    /// `sql::translateSelect` raises.
    Recordset OpenRecordset(const QString& source,
                            RecordsetType type = RecordsetType::Dynaset) const;
    QList<Recordset> Recordsets() const; ///< those open

    TableDef CreateTableDef(const QString& name) const { return TableDef(name); }
    TableDefCollection TableDefs() const;
    Relation CreateRelation(const QString& name, const QString& table, const QString& foreignTable,
                            int attributes) const;
    RelationCollection Relations() const;

    /// Changes the file's password; an empty one means none. Raises 3031 when `oldPassword` is not
    /// the file's, 3219 while a recordset is open. A failure leaves the file as it was.
    void NewPassword(const QString& oldPassword, const QString& newPassword);

    /// For a file that is built under an unfinished name and put in place by `replaceFile`, which
    /// flushes it as a whole: until Close no change is flushed by itself. A kill then still leaves
    /// the file whole; a power cut may not.
    void FlushWhenReplaced();

    /// Whether its file still has its name: another program may have moved, deleted or replaced it.
    /// Then the content is there as long as the database is open, and can be read; a change raises
    /// 3024.
    bool IsInPlace() const;
    /// Whether its file has another name too (a hard link). What replaces the file as a whole, as a
    /// backup does, leaves the former content under that one.
    bool HasOtherNames() const;
    /// Copies the file, byte for byte, to a path that is free and goes on there: recordsets stay
    /// open, the password stays the same. The former file is let go as it is. Raises 3204 where the
    /// path is taken, 3219 in a transaction or with the file open more than once, and what copying
    /// raises; then it goes on where it was.
    void MoveTo(const QString& path);

    void Close(); ///< closes its recordsets too; nothing happens when it is closed already

private:
    friend class DBEngine;
    friend class Transaction;
    friend class Reading;
    friend class Workspace;
    explicit Database(std::shared_ptr<DatabaseCore> core);
    std::shared_ptr<DatabaseCore> checkedCore() const; ///< raises 3420 when closed
    std::shared_ptr<DatabaseCore> m_core;
};

/// Work that is done whole or not at all: what happens to the database between construction and
/// `commit` is undone when the object goes without it, and open recordsets follow. May stand inside
/// another.
class Transaction {
public:
    explicit Transaction(const Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

private:
    std::shared_ptr<DatabaseCore> m_core;
    bool m_open = true;
};

/// Reads that belong together: they see the file as it is at the first of them, and take its lock
/// once. As long as the object lives nothing is written in this process.
class Reading {
public:
    explicit Reading(const Database& database);
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

private:
    std::shared_ptr<DatabaseCore> m_core;
    std::unique_ptr<ReadScope> m_scope;
};

} // namespace dao
