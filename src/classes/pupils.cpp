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

/// Opens a table; none where it does not exist.
dao::Recordset openWhereThere(const dao::Database& database, const QString& table,
                              const QString& fields) {
    return database.TableDefs().Contains(table)
               ? database.OpenRecordset(u"SELECT %1 FROM %2"_s.arg(fields, dao::writeName(table)))
               : dao::Recordset();
}

void addRow(dao::Recordset& rows, qint64 id) {
    if (!rows.isOpen())
        return;
    rows.AddNew();
    rows.SetCollect(u"ID", id);
    rows.Update();
}

void addDesk(dao::Recordset& desks, qint64 id, const QString& caption) {
    if (!desks.isOpen())
        return;
    desks.AddNew();
    desks.SetCollect(u"ID", id);
    desks.SetCollect(u"Caption", caption);
    desks.SetCollect(u"left", 0);
    desks.SetCollect(u"Top", 0);
    desks.SetCollect(u"Width", DeskWidth);
    desks.SetCollect(u"Height", DeskHeight);
    desks.SetCollect(u"Visible", u"True"_s);
    desks.Update();
}

qint64 addPupil(const dao::Database& database, const QString& classCode, const PupilName& name) {
    dao::Transaction transaction(database);
    const qint64 id = PupilIntake(database, classCode)
                          .add({{u"Surname"_s, name.surname}, {u"Firstname"_s, name.firstname}});
    transaction.commit();
    return id;
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

PupilRows::PupilRows(const dao::Database& database, const QString& classCode)
    : m_register(openWhereThere(database, registerTable(classCode), u"ID"_s))
    , m_marks(openWhereThere(database, marksTable(classCode), u"ID"_s))
    , m_desks(openWhereThere(database, seatingPlanTable(classCode), u"*"_s)) {}

void PupilRows::add(qint64 id, const QString& caption) {
    addRow(m_register, id);
    addRow(m_marks, id);
    addDesk(m_desks, id, caption);
}

void updateRegisterAndMarksId(const dao::Database& database, const QString& classCode, qint64 id,
                              const QString& caption) {
    PupilRows(database, classCode).add(id, caption);
}

PupilIntake::PupilIntake(const dao::Database& database, const QString& classCode)
    : m_pupils(database.OpenRecordset(classTable(classCode))), m_rows(database, classCode) {}

qint64 PupilIntake::add(const QList<PupilField>& fields) {
    m_pupils.AddNew();
    for (const PupilField& field : fields)
        m_pupils.SetCollect(field.name, field.value);
    m_pupils.Update();
    m_pupils.MoveLast();
    const qint64 id = m_pupils.Collect(u"ID").toInteger();
    m_rows.add(id, m_pupils.Collect(u"Firstname").toText() + u"\r\n"_s +
                       m_pupils.Collect(u"Surname").toText());
    return id;
}
