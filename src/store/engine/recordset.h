#pragma once

#include "store/engine/structure.h"
#include "store/engine/value.h"

#include <QList>

#include <memory>

namespace dao {

class DatabaseCore;
class RecordsetCore;
class Recordset;

enum class RecordsetType : short { Dynaset = 2, Snapshot = 4 };
enum class EditMode : short { None = 0, InProgress = 1, Add = 2 };

/// A place in a recordset, kept to come back to. Valid in the recordset and its clones.
class Bookmark {
public:
    Bookmark() = default; ///< no place
    bool isNull() const { return m_entry < 0; }
    bool operator==(const Bookmark& other) const = default;

private:
    friend class Recordset;
    friend class RecordsetCore;
    explicit Bookmark(int entry) : m_entry(entry) {}
    int m_entry = -1;
};

/// One field of a recordset's current record.
class RecordsetField {
public:
    const QString& Name() const;
    DataType Type() const;
    int Size() const;
    QString SourceTable() const; ///< empty for an expression
    QString SourceField() const;

    Value value() const;
    bool isNull() const { return value().isNull(); }
    QString text() const { return value().toText(); }
    qint64 integer() const { return value().toInteger(); }
    void setValue(const Value& value) const;
    const RecordsetField& operator=(const Value& value) const;

    /// The length of a memo in characters or of a long binary in bytes; 0 for Null.
    qsizetype FieldSize() const;
    /// A part of a memo (as UTF-8) or long binary: `count` characters or bytes from `offset`. Parts
    /// of a memo, read or written, must not divide a character.
    QByteArray GetChunk(qsizetype offset, qsizetype count) const;
    /// Adds to the end of the value being edited; the first call after Edit or AddNew replaces it.
    void AppendChunk(const QByteArray& bytes) const;

private:
    friend class Recordset;
    RecordsetField(std::shared_ptr<RecordsetCore> core, int column);
    std::shared_ptr<RecordsetCore> m_core;
    int m_column;
};

/// A walk over records. A dynaset fetches the keys when it opens and each record when it is
/// visited, and can change them; a snapshot holds all values as they were when it opened.
///
/// State: BOF and EOF are both true when there is no record at all. Opened on records, the first is
/// current. Beyond either end, and straight after Delete, there is no current record; what needs
/// one then raises 3021 (3167 after Delete). Leaving a record drops changes that were not written
/// by Update. A handle: copies speak of the same recordset; Clone makes one with a place of its
/// own.
class Recordset {
public:
    Recordset() = default; ///< none

    bool isOpen() const;
    QString Name() const; ///< the table's name or the SQL text it was opened with
    RecordsetType Type() const;

    bool BOF() const;
    bool EOF_() const; ///< beyond the last record (EOF is taken by the C library)
    /// The number of records. It is complete at any time; code written for the DAO calls MoveLast
    /// first.
    int RecordCount() const;
    int AbsolutePosition() const; ///< from 0; -1 with no current record
    void SetAbsolutePosition(int position);
    dao::Bookmark Bookmark() const;                  ///< raises 3021 with no current record
    void SetBookmark(const dao::Bookmark& bookmark); ///< raises 3167 when the record is gone
    dao::Bookmark LastModified() const;              ///< of the record last added or changed here

    void MoveFirst();
    void MoveLast();
    void MoveNext();     ///< raises 3021 at EOF
    void MovePrevious(); ///< raises 3021 at BOF
    /// Makes the first record that meets the condition current. Without one NoMatch is true and the
    /// place stays. Raises 3075, 3061 or 3464 for a condition that is none.
    void FindFirst(const QString& criteria);
    bool NoMatch() const;

    dao::EditMode EditMode() const;
    void AddNew();
    void Edit();
    /// Writes what AddNew or Edit began, whole or not at all. A record added stands last; the place
    /// stays where it was before AddNew (LastModified leads to the new one). Raises 3020 with
    /// nothing begun, 3314 for a required field left Null, 3022 for a key that exists, 3182 on a
    /// full disk; the change then stays begun.
    void Update();
    void CancelUpdate();
    /// Deletes the current record; of a join, its record of the last table named.
    void Delete();

    int FieldCount() const;
    RecordsetField Fields(int column) const;       ///< raises 3265 beyond the end
    RecordsetField Fields(QStringView name) const; ///< raises 3265 where there is none
    bool HasField(QStringView name) const;
    /// The value of a field of the current record. Shorthand for Fields(name).value().
    Value Collect(QStringView name) const;
    Value Collect(int column) const;
    /// Sets a field of the record being edited. Raises 3020 unless AddNew or Edit began, 3163 for a
    /// text beyond the field's size, 3315 for an empty text where none is allowed, 3421 for what
    /// the type can't hold.
    void SetCollect(QStringView name, const Value& value);
    void SetCollect(int column, const Value& value);
    RecordsetField operator[](QStringView name) const { return Fields(name); }

    /// The order that OpenRecordset gives to a new recordset made from this one, as behind ORDER
    /// BY.
    void SetSort(const QString& order);
    QString Sort() const;
    Recordset OpenRecordset() const;
    /// A second walk over the same records with a place of its own, no current record at first.
    Recordset Clone() const;

    void Close();

private:
    friend class Database;
    explicit Recordset(std::shared_ptr<RecordsetCore> core);
    RecordsetCore& core() const; ///< raises 3420 when closed
    std::shared_ptr<RecordsetCore> m_core;
};

} // namespace dao
