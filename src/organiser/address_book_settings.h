#pragma once

#include "core/setting.h"

/// The settings of the address book.
namespace setting {

/// The key with the window's place among other things.
inline constexpr QStringView AddressBook = u"AddressBook";

/// Whether contacts, and groups of them, go without a question.
inline constexpr Setting<bool> DontShowDeleteContactPrompt{AddressBook,
                                                           u"DontShowDeleteContactPrompt", false};
inline constexpr Setting<bool> DontShowDeleteGroupPrompt{AddressBook, u"DontShowDeleteGroupPrompt",
                                                         false};

} // namespace setting
