#pragma once

#include "store/engine/database.h"

#include <QList>
#include <QString>

#include <optional>

class Prompts;

/// How a pupil comes into a class.

/// Asks for a pupil's name, first name first, and adds him with his rows in the register, the
/// grades and the seating plan. The first word is the first name, all others are the surname.
/// Answers his `ID`; none when it was cancelled, the name was refused or the file failed, which is
/// told and leaves the class as it was.
std::optional<qint64> Add_New_Pupil(const dao::Database& database, const QString& classCode,
                                    Prompts& prompts);

/// Gives pupils of `Class_`C their rows in the class's other tables, where they exist. Raises what
/// the engine raises.
class PupilRows {
public:
    PupilRows(const dao::Database& database, const QString& classCode);
    /// `caption` is what his desk reads.
    void add(qint64 id, const QString& caption);

private:
    dao::Recordset m_register;
    dao::Recordset m_marks;
    dao::Recordset m_desks;
};

/// Gives one pupil his rows.
void updateRegisterAndMarksId(const dao::Database& database, const QString& classCode, qint64 id,
                              const QString& caption);

/// What a field of a new pupil's record holds.
struct PupilField {
    QString name;
    dao::Value value;
};

/// Takes pupils into a class, any number of them one after the other. Raises what the engine
/// raises; whoever uses it keeps the whole in a transaction.
class PupilIntake {
public:
    PupilIntake(const dao::Database& database, const QString& classCode);
    /// Adds a pupil with his rows in all tables of the class; answers his `ID`.
    qint64 add(const QList<PupilField>& fields);

private:
    dao::Recordset m_pupils;
    PupilRows m_rows;
};
