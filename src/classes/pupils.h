#pragma once

#include "store/engine/database.h"

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

/// Gives a pupil of `Class_`C his rows in the class's other tables, where they exist. `caption` is
/// what his desk reads. Raises what the engine raises.
void updateRegisterAndMarksId(const dao::Database& database, const QString& classCode, qint64 id,
                              const QString& caption);
