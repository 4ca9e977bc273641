#pragma once

#include "command.h"

/// Reads what the program was called with, and the passwords from where `--password-fd` says.
/// Raises UsageError.
Call readCall(const QStringList& words);

/// How a command is called; null: how the program is.
QString usageOf(const Command* command);
