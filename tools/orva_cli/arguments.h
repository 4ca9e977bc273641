#pragma once

#include "command.h"

/// Reads what the program was called with, and the passwords: from where `--password-fd` says, from
/// `--password`, or from the environment (`ORVA_PASSWORD`, `ORVA_SECOND_PASSWORD`).
/// Raises UsageError.
Call readCall(const QStringList& words);

/// How a command is called; null: how the program is.
QString usageOf(const Command* command);
