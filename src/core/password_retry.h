#pragma once

#include "store/engine/engine.h"

#include <QString>

class Prompts;

/// Asks for the password of a protected file after `failures` earlier answers, the last of which
/// the teacher is told was wrong: the first time there is no such word. False when it was called
/// off; `password` then stays.
bool askForPassword(Prompts& prompts, int failures, QString& password);

/// Opens another file to read from it, a genuine Jet file too, and asks for its password where it
/// has one. None when the teacher called the password off; raises what the engine raises otherwise.
dao::Database openSource(const dao::DBEngine& engine, Prompts& prompts, const QString& path);
