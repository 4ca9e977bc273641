#pragma once

#include "store/engine/structure.h"

#include <functional>
#include <memory>

namespace dao {

class Catalog;
class DatabaseCore;

/// The fields of a table, in their order. Of a table that stands in a file, a change is made in the
/// file at once; while a recordset has the table open it raises 3211, and nothing changes.
class FieldCollection {
public:
    int Count() const;
    Field operator[](int position) const;     ///< raises 3265 beyond the end
    Field operator[](QStringView name) const; ///< raises 3265 where there is none; case-blind
    bool Contains(QStringView name) const;
    QList<Field>::const_iterator begin() const;
    QList<Field>::const_iterator end() const;

    /// Adds a field, last or at its `OrdinalPosition`. Raises 3191 when the name is taken, 3125 for
    /// a name that can't be one, 3190 beyond 255 fields.
    void Append(const Field& field);
    /// Removes a field with all it holds. Raises 3265 where there is none.
    void Delete(QStringView name);
    /// Gives a field another name; relations and indexes follow. Raises as Append and Delete.
    void Rename(QStringView name, const QString& newName);
    /// Moves a field so that it stands at `position`, counted from 0; those between shift by one.
    void SetOrdinalPosition(QStringView name, int position);
    /// The table gets these fields, in this order, at one go: what the records hold stays in the
    /// fields that have kept their name, and goes with those that are not among them. Raises 3281
    /// where an index needs one of these, and as Append does.
    void SetAll(const QList<Field>& fields);

private:
    friend class TableDef;
    FieldCollection(std::shared_ptr<DatabaseCore> core, std::shared_ptr<TableStructure> structure);

    TableStructure& current() const; ///< as it stands in the file now
    void change(const std::function<void(Catalog&)>& work);

    std::shared_ptr<DatabaseCore> m_core; ///< null for a table not yet appended
    std::shared_ptr<TableStructure> m_structure;
};

/// The definition of a table: of one in a file, or of one still to be appended to
/// `Database::TableDefs`. A handle: copies speak of the same definition.
class TableDef {
public:
    explicit TableDef(const QString& name); ///< one to be appended later

    const QString& Name() const { return m_structure->name; }
    FieldCollection Fields() const;
    QList<Index> Indexes() const { return structure().indexes; }
    const TableStructure& structure() const; ///< all of it, as it stands in the file now

    /// A description to be filled in further and handed to `Fields().Append`.
    static Field CreateField(const QString& name, DataType type, int size = 0);
    /// A description to be filled in further and handed to `AppendIndex`.
    static Index CreateIndex(const QString& name);
    /// Adds an index. Raises 3265 for a field that the table lacks, 3022 when the records there
    /// break it, 3211 as the fields' changes do.
    void AppendIndex(const Index& index);
    /// Lets a table that is still to be appended come with a relation in which it is the foreign
    /// one: quicker than to relate it afterwards, which builds it again. `Append` raises what
    /// `RelationCollection::Append` would. Raises 3219 for a table in a file.
    void AppendRelation(const Relation& relation);

private:
    friend class TableDefCollection;
    TableDef(std::shared_ptr<DatabaseCore> core, std::shared_ptr<TableStructure> structure);

    std::shared_ptr<DatabaseCore> m_core;
    std::shared_ptr<TableStructure> m_structure;
};

/// The tables of a file, in the order in which they were made.
class TableDefCollection {
public:
    explicit TableDefCollection(std::shared_ptr<DatabaseCore> core);

    int Count() const;
    bool Contains(QStringView name) const;       ///< case-blind
    TableDef operator[](QStringView name) const; ///< raises 3265 where there is none
    QStringList names() const;

    /// Makes the table in the file. Raises 3010 when the name is taken, 3125, 3190, 3191, and 3219
    /// for a table without fields.
    void Append(const TableDef& table);
    /// Removes a table with all it holds, and the relations in which it is the foreign one. Raises
    /// 3265 where there is none, 3211 in use, 3281 while another table is related to it.
    void Delete(QStringView name);

private:
    std::shared_ptr<DatabaseCore> m_core;
};

/// The relations of a file.
class RelationCollection {
public:
    explicit RelationCollection(std::shared_ptr<DatabaseCore> core);

    QList<Relation> all() const;
    QList<Relation> to(QStringView table) const;   ///< by which others depend on its records
    QList<Relation> from(QStringView table) const; ///< by which it depends on others
    /// Raises 3367 for a name in use, 3265 for a table or field that is not there, 3219
    /// for fields of `Table` that are no key of it, 3201 when records there break it.
    void Append(const Relation& relation);
    void Delete(QStringView name); ///< raises 3265 where there is none

private:
    std::shared_ptr<DatabaseCore> m_core;
};

} // namespace dao
