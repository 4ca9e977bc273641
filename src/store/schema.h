#pragma once

#include "store/engine/table_def.h"

#include <QList>
#include <QString>

/// The one description of every table of a year's file and of the address book. What makes a table
/// or a field takes it from here, and so does docs/file-format.md.

enum class Table {
    Planning,
    DateField,
    Admin,
    Classcodes,
    ExtraTTinfo,
    ExtraTTinfoB,
    TermDates,
    Class,
    Register,
    Marks,
    SeatingPlan,
    SeatingPlanExtra,
    LessonNotes,
    FileLinks,
    STPdata,
    RoomID,
    ClassTemp,
    Temp,
    WeekChange,
    Schedules,
    PostIt,
    IncidentNames,
    IncidentDetails,
    AddressBookAdmin,
    Contacts,
};

/// When a table comes to be.
enum class Made {
    AtCreation,   ///< with the year's file
    PerClass,     ///< with a class or by its tools; named by a prefix and the class code
    OnDemand,     ///< by the first window that needs it
    InAddressBook ///< in the address book's own file
};

/// What of a year decides the fields of its tables.
struct YearShape {
    int periodsPerDay = 0;
    bool twoWeeks = false; ///< two timetables by turns, A and B
};

enum FieldFlag {
    ZeroLength = 1, ///< takes an empty text
    Required = 2,   ///< refuses Null
    AutoNumber = 4, ///< numbers the records by itself
    Key = 8,        ///< the primary, unique index "ID_index"
    TwoWeeksOnly = 16,
    EachPeriod = 32, ///< neighbours with this flag come as a group for each period, numbered from 1
    EachDay = 64,    ///< comes 31 times, numbered from 1
    AddedLater = 128 ///< not made with the table
};

struct FieldSpec {
    const char* name;
    dao::DataType type;
    int size;  ///< of a Text; 0 for every other type
    int flags; ///< FieldFlag
    const char* meaning;
};

struct TableSpec {
    Table table;
    QString name; ///< of a class's table the prefix
    Made made;
    int flags; ///< 0 or TwoWeeksOnly
    const char* meaning;
    QList<FieldSpec> fields;
};

/// The tables in the order in which a new file gets them.
const QList<TableSpec>& schemaTables();
const TableSpec& schemaTable(Table table);

/// `Calendar` has a field for each day that a month can have, and a record for each month.
inline constexpr int DaysOfCalendar = 31;

/// The size of a Text field for which none was chosen.
inline constexpr int DefaultTextSize = 50;
/// The attributes of the relations between a class and its tables: changes and deletions cascade.
inline constexpr int ClassRelationAttributes =
    dao::RelationUpdateCascade | dao::RelationDeleteCascade;

/// The fields that a table is made with, in order.
QList<dao::Field> schemaFields(Table table, const YearShape& shape = {});
/// One field by its name in the description, for a file that lacks it.
dao::Field schemaField(Table table, QStringView name);

/// The definition of a table, ready to be appended. `classCode` (or what else stands behind the
/// prefix) is for the tables of a class only.
dao::TableDef schemaTableDef(Table table, const YearShape& shape = {},
                             const QString& classCode = {});

/// The relation that ties the records of one of a class's tables to the pupils by `ID`.
dao::Relation classRelation(const QString& name, const QString& classCode,
                            const QString& foreignTable);
