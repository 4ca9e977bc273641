#include "seating/plan_tables.h"

#include "store/engine/names.h"
#include "store/schema.h"
#include "store/table_names.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString TrueText = u"True"_s;
const QString FalseText = u"False"_s;

QString pupilTable(const PlanName& plan) {
    return seatingPlanTable(plan.classCode, plan.room);
}
QString extraTable(const PlanName& plan) {
    return seatingPlanExtraTable(plan.classCode, plan.room);
}

dao::Recordset rowsOfPlan(const dao::Database& year, const QString& table,
                          dao::RecordsetType type) {
    return year.OpenRecordset(u"SELECT * FROM "_s + dao::writeName(table), type);
}

Desk deskOf(const dao::Recordset& row) {
    const auto number = [&row](QStringView field) {
        return static_cast<int>(row.Collect(field).toInteger());
    };
    return {.id = row.Collect(u"ID").toInteger(),
            .place = {number(u"Left"), number(u"Top"), number(u"Width"), number(u"Height")},
            .caption = row.Collect(u"Caption").toText(),
            .isVisible =
                row.Collect(u"Visible").toText().compare(FalseText, Qt::CaseInsensitive) != 0};
}

void fill(dao::Recordset& row, const Desk& desk) {
    row.SetCollect(u"left", desk.place.left());
    row.SetCollect(u"Top", desk.place.top());
    row.SetCollect(u"Width", desk.place.width());
    row.SetCollect(u"Height", desk.place.height());
    row.SetCollect(u"Visible", desk.isVisible ? TrueText : FalseText);
    row.SetCollect(u"Caption", desk.caption);
}

void addRow(dao::Recordset& rows, const Desk& desk) {
    rows.AddNew();
    rows.SetCollect(u"ID", desk.id);
    fill(rows, desk);
    rows.Update();
}

void makeTable(const dao::Database& year, const dao::TableDef& table, const Desks& desks) {
    year.TableDefs().Append(table);
    dao::Recordset rows = rowsOfPlan(year, table.Name(), dao::RecordsetType::Dynaset);
    for (const Desk& desk : desks)
        addRow(rows, desk);
    rows.Close();
}

/// Takes the desks that it has found out of `desks`.
void updateTable(const dao::Database& year, const QString& table, QHash<qint64, Desk>& desks) {
    dao::Recordset rows = rowsOfPlan(year, table, dao::RecordsetType::Dynaset);
    for (; !rows.EOF_(); rows.MoveNext()) {
        const Desk stored = deskOf(rows);
        const auto found = desks.constFind(stored.id);
        if (found == desks.constEnd())
            continue;
        if (*found != stored) {
            rows.Edit();
            fill(rows, *found);
            rows.Update();
        }
        desks.erase(found);
    }
    rows.Close();
}

void dropWhereThere(const dao::Database& year, const QString& table) {
    if (year.TableDefs().Contains(table))
        year.TableDefs().Delete(table);
}

} // namespace

QStringList GetClassLists(const dao::Database& year) {
    QStringList classes;
    for (const QString& table : year.TableDefs().names()) {
        if (const std::optional<QString> code = classOfClassTable(table))
            classes += *code;
    }
    return classes;
}

QStringList GetMultiPlans(const dao::Database& year, const QString& classCode) {
    QStringList plans{DefaultPlan};
    for (const QString& table : year.TableDefs().names()) {
        const std::optional<QString> room = roomOfSeatingPlan(table, classCode);
        if (room && !room->isEmpty())
            plans += *room;
    }
    return plans;
}

PlanTables planTables(const dao::Database& year, const PlanName& plan) {
    const dao::TableDefCollection tables = year.TableDefs();
    const bool hasExtra = tables.Contains(extraTable(plan));
    if (tables.Contains(pupilTable(plan)))
        return hasExtra ? PlanTables::Both : PlanTables::PupilsOnly;
    return hasExtra ? PlanTables::ExtraOnly : PlanTables::None;
}

void readPlan(const dao::Database& year, const PlanName& plan, Desks& desks) {
    dao::Recordset pupils = rowsOfPlan(year, pupilTable(plan), dao::RecordsetType::Snapshot);
    for (; !pupils.EOF_(); pupils.MoveNext())
        desks += deskOf(pupils);
    dao::Recordset extras = rowsOfPlan(year, extraTable(plan), dao::RecordsetType::Snapshot);
    std::optional<Desk> teachers;
    for (; !extras.EOF_(); extras.MoveNext()) {
        Desk desk = deskOf(extras);
        if (desk.isEmpty()) {
            desks += desk;
        } else if (desk.isTeachers()) {
            desk.isVisible = true;
            teachers = desk;
        }
    }
    if (teachers)
        desks += *teachers;
}

void makePlan(const dao::Database& year, const PlanName& plan, const Desks& desks) {
    Desks pupils;
    Desks extras;
    for (const Desk& desk : desks)
        (desk.isPupils() ? pupils : extras) += desk;
    const QString behindPrefix = pupilTable(plan).mid(SeatingPlanPrefix.size());
    dao::TableDef pupilDef = schemaTableDef(Table::SeatingPlan, {}, behindPrefix);
    pupilDef.AppendRelation(classRelation(pupilTable(plan), plan.classCode, pupilTable(plan)));
    dao::Transaction whole(year);
    makeTable(year, pupilDef, pupils);
    makeTable(year, schemaTableDef(Table::SeatingPlanExtra, {}, behindPrefix), extras);
    whole.commit();
}

Desks savePlan(const dao::Database& year, const PlanName& plan, const Desks& desks) {
    QHash<qint64, Desk> pupils;
    QHash<qint64, Desk> extras;
    for (const Desk& desk : desks)
        (desk.isPupils() ? pupils : extras).insert(desk.id, desk);
    dao::Transaction whole(year);
    const bool hasPupils =
        rowsOfPlan(year, pupilTable(plan), dao::RecordsetType::Snapshot).RecordCount() > 0;
    updateTable(year, pupilTable(plan), pupils);
    updateTable(year, extraTable(plan), extras);
    whole.commit();
    Desks missing = desks;
    missing.removeIf([&](const Desk& desk) { return !hasPupils || !pupils.contains(desk.id); });
    return missing;
}

void deletePlan(const dao::Database& year, const PlanName& plan) {
    dao::Transaction whole(year);
    dropWhereThere(year, pupilTable(plan));
    dropWhereThere(year, extraTable(plan));
    whole.commit();
}

void addEmptyDesk(const dao::Database& year, const PlanName& plan, const Desk& desk) {
    dao::Recordset rows = rowsOfPlan(year, extraTable(plan), dao::RecordsetType::Dynaset);
    addRow(rows, desk);
}

void deleteEmptyDesk(const dao::Database& year, const PlanName& plan, qint64 id) {
    dao::Recordset row = year.OpenRecordset(u"SELECT * FROM %1 WHERE ID = %2;"_s.arg(
        dao::writeName(extraTable(plan)), QString::number(id)));
    if (!row.EOF_())
        row.Delete();
}

QList<SeatedPupil> pupilsToSeat(const dao::Database& year, const QString& classCode) {
    QList<SeatedPupil> pupils;
    dao::Recordset rows =
        year.OpenRecordset(u"SELECT ID,Surname,Firstname FROM %1 ORDER BY Surname;"_s.arg(
                               dao::writeName(classTable(classCode))),
                           dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext())
        pupils += {rows.Collect(0).toInteger(),
                   pupilCaption(rows.Collect(2).toText(), rows.Collect(1).toText())
                       .left(LongestDeskCaption)};
    return pupils;
}

void readShownPlan(const dao::Database& year, const PlanName& plan, ShownPlan& shown) {
    const dao::Reading atOnce(year);
    shown.plans = GetMultiPlans(year, plan.classCode);
    shown.pupils = pupilsToSeat(year, plan.classCode);
    if (planTables(year, plan) != PlanTables::None)
        readPlan(year, plan, shown.desks);
}

QString planLag(const Desks& desks, const QList<SeatedPupil>& pupils) {
    qsizetype without = 0;
    qsizetype renamed = 0;
    for (const SeatedPupil& pupil : pupils) {
        const qsizetype place = deskPlace(desks, pupil.id);
        if (place < 0)
            ++without;
        else if (desks[place].caption.simplified() != pupil.caption.simplified())
            ++renamed;
    }
    QStringList lags;
    if (without > 0)
        lags += without == 1 ? u"1 pupil has no desk"_s : u"%1 pupils have no desk"_s.arg(without);
    if (renamed > 0)
        lags +=
            renamed == 1 ? u"1 desk has an old name"_s : u"%1 desks have old names"_s.arg(renamed);
    return lags.join(u", "_s);
}
