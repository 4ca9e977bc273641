#pragma once

#include "command.h"

/// Commands on an address book.

/// Adds the contacts of a comma-separated file to a book, which is made where it is missing.
ExitStatus importContacts(const Workplace& workplace, const Call& call);
