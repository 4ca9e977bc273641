#pragma once

#include "store/engine/database_core.h"
#include "store/engine/jet_sql.h"
#include "store/engine/recordset.h"

#include <QHash>
#include <QList>

#include <memory>
#include <optional>

namespace dao {

/// The records of a recordset, shared with its clones: for a dynaset their keys (the row numbers in
/// each source), for a snapshot their values. A record keeps its entry for good, so that bookmarks
/// hold; a deleted one is marked.
struct KeySet {
    struct Entry {
        QList<qint64> keys;
        QList<Value> values; ///< of a snapshot
        bool deleted = false;
    };
    QList<Entry> entries;
    int live = 0;
    bool inRowOrder = false; ///< as the records stand in the table, by whatever they were sorted
    std::optional<QHash<QList<qint64>, int>> places; ///< of the keys, made when first searched
};

/// What the handles on one recordset share. See `Recordset` for what the operations mean.
class RecordsetCore {
public:
    RecordsetCore(std::shared_ptr<DatabaseCore> database, QString name, RecordsetType type,
                  sql::Query query);
    RecordsetCore(const RecordsetCore& original, const QString& order); ///< opened anew, sorted
    explicit RecordsetCore(const RecordsetCore& original);              ///< a clone
    ~RecordsetCore();
    RecordsetCore& operator=(const RecordsetCore&) = delete;

    bool isOpen() const { return m_open; }
    void close();

    const QString name;
    const RecordsetType type;
    const sql::Query query;
    QString sort;
    bool noMatch = false;
    int lastModified = -1;

    bool atStart() const;
    bool atEnd() const;
    int count() const { return m_keys->live; }
    int absolutePosition() const;
    void setAbsolutePosition(int position);
    int bookmark() const;
    void setBookmark(int entry);
    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();
    void findFirst(const QString& criteria);

    EditMode editMode() const { return m_editMode; }
    void addNew();
    void edit();
    void update();
    void cancelUpdate();
    void deleteRecord();

    int columnIndex(QStringView columnName) const; ///< -1 where there is none
    const sql::Column& column(int index) const { return query.columns.at(index); }
    Value value(int column);
    void setValue(int column, const Value& value);
    void appendChunk(int column, const QByteArray& bytes);

    void releaseReaders(); ///< before the database gets another connection
    void resync();         ///< after undone work: looks again which records there are
    std::shared_ptr<DatabaseCore> database() const { return m_database; }

private:
    void useTables(int change);
    void moveToStart();
    void fetchKeys(const QString& order); ///< of a snapshot the values too
    QString selectRows(const QString& columns, const QString& order) const;
    void requireCurrent() const;
    void requireDynaset() const;
    void beginEditing(EditMode mode, QList<Value> values);
    void goTo(int entry);
    int nextLive(int entry, int step) const;
    const QList<Value>& row();
    void readAhead(int entry);
    void readRows(int first, int end);  ///< into m_ahead, `end` not included
    void readRange(int first, int end); ///< the same, of a whole table in the order of its rows
    QList<Value> readRow(const QList<qint64>& keys);
    QList<Value> readValues(const Statement& row) const;
    std::unique_ptr<Statement> prepareReader(const QString& condition) const;
    void noteChange();
    bool resolve(const QString& qualifier, const QString& fieldName, sql::FieldSql& out,
                 bool asParameter) const;
    int findInDynaset(const QString& criteria);
    int findInSnapshot(const QString& criteria);
    int placeOf(const QList<qint64>& keys);
    /// How records are written that have the same fields changed: by what statement, to which the
    /// values of these columns are bound. Most records written one after another have.
    struct WriteShape {
        QList<bool> changed;
        QList<int> columns;
        QString sql;
    };

    WriteShape shapeOfInsert() const;
    void insertRecord();
    WriteShape shapeOfUpdate(int source) const;
    void updateRecord();
    bool holdsWhatWasWritten();
    bool holdsWhatIsInFile() const;
    void updateSource(int source);
    Statement& bound(const WriteShape& shape);
    void checkRequired() const;

    std::shared_ptr<DatabaseCore> m_database;
    std::shared_ptr<KeySet> m_keys;
    bool m_open = true;
    int m_entry =
        -1; ///< the current one; -1 before the first, a number of no entry behind the last
    bool m_currentDeleted = false; ///< it was deleted here, and no move has followed
    bool m_rowLoaded = false;
    QList<Value> m_row;
    std::unique_ptr<Statement> m_reader; ///< reads one record by its keys; made when first needed
    std::unique_ptr<Statement> m_rangeReader; ///< the records of a table between two keys
    /// Records read ahead in a walk: each read by itself would cost the locks of the file anew.
    /// Used as long as nothing in the file has changed; a record that is gone has no values.
    QList<QList<Value>> m_ahead;
    int m_aheadStart = -1; ///< the entry of the first of them
    quint64 m_aheadChanges = 0;
    bool m_aheadIsHeld =
        false; ///< read in a transaction, so that nobody changes them until its end
    EditMode m_editMode = EditMode::None;
    QList<Value> m_edited;
    QList<bool> m_changed;
    QList<bool> m_chunked;
    WriteShape m_insertShape;         ///< of the record added last
    QList<WriteShape> m_updateShapes; ///< of the record changed last, for each source
};

} // namespace dao
