#include "classes/pupils.h"

#include "classes/class_views.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "store/engine/names.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

namespace {

const QString PupilNameTitle = u"Enter Pupil Name:"_s;

/// A desk as it stands before anybody has moved it, in twips.
constexpr int DeskWidth = 855;
constexpr int DeskHeight = 600;

/// The name that was typed; none, which is told, unless a blank divides it.
std::optional<PupilName> readPupilName(const QString& typed, Prompts& prompts) {
    const qsizetype blank = typed.indexOf(u' ');
    if (blank > 0 && blank < typed.size() - 1)
        return PupilName{typed.mid(blank + 1), typed.left(blank)};
    prompts.PlainBox(u"You must enter a Firstname followed by a Surname, seperated with a space! "
                     "Please try again."_s,
                     OkButton | WarningIcon, u"Invalid Name:"_s);
    return std::nullopt;
}

qint64 addPupil(const dao::Database& database, const QString& classCode, const PupilName& name) {
    dao::Transaction transaction(database);
    dao::Recordset pupils = database.OpenRecordset(
        u"SELECT ID,Surname,Firstname FROM %1"_s.arg(dao::writeName(classTable(classCode))));
    pupils.AddNew();
    pupils.SetCollect(u"Surname", name.surname);
    pupils.SetCollect(u"Firstname", name.firstname);
    pupils.Update();
    pupils.MoveLast();
    const qint64 id = pupils.Collect(u"ID").toInteger();
    pupils.Close();
    updateRegisterAndMarksId(database, classCode, id, name.firstname + u"\r\n"_s + name.surname);
    transaction.commit();
    return id;
}

void addRow(const dao::Database& database, const QString& table, qint64 id) {
    if (!database.TableDefs().Contains(table))
        return;
    dao::Recordset rows = database.OpenRecordset(u"SELECT ID FROM "_s + dao::writeName(table));
    rows.AddNew();
    rows.SetCollect(u"ID", id);
    rows.Update();
    rows.Close();
}

void addDesk(const dao::Database& database, const QString& table, qint64 id,
             const QString& caption) {
    if (!database.TableDefs().Contains(table))
        return;
    dao::Recordset desks = database.OpenRecordset(table);
    desks.AddNew();
    desks.SetCollect(u"ID", id);
    desks.SetCollect(u"Caption", caption);
    desks.SetCollect(u"left", 0);
    desks.SetCollect(u"Top", 0);
    desks.SetCollect(u"Width", DeskWidth);
    desks.SetCollect(u"Height", DeskHeight);
    desks.SetCollect(u"Visible", u"True"_s);
    desks.Update();
    desks.Close();
}

} // namespace

std::optional<qint64> Add_New_Pupil(const dao::Database& database, const QString& classCode,
                                    Prompts& prompts) {
    const QString typed =
        prompts.input_box(u"Please enter the name of the new pupil: \nE.g.  Alexander Morrow"_s,
                          OkCancelButtons, PupilNameTitle);
    if (typed.isEmpty())
        return std::nullopt;
    const std::optional<PupilName> name = readPupilName(typed, prompts);
    if (!name)
        return std::nullopt;
    std::optional<qint64> pupil;
    tryTelling(prompts, {PupilNameTitle}, [&] { pupil = addPupil(database, classCode, *name); });
    return pupil;
}

void updateRegisterAndMarksId(const dao::Database& database, const QString& classCode, qint64 id,
                              const QString& caption) {
    addRow(database, registerTable(classCode), id);
    addRow(database, marksTable(classCode), id);
    addDesk(database, seatingPlanTable(classCode), id, caption);
}
