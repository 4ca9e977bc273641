#pragma once

#include <QStringView>

class Prompts;
class Settings;

namespace setting {

/// The key of the incident reports, and the flag that their warning is not shown any more.
inline constexpr QStringView Incidents = u"Incidents";
inline constexpr QStringView ShowSecurityDialog = u"ShowSecurityDialog"; ///< 1: do not ask again

} // namespace setting

/// Whether the incident reports may be shown now. Unless the setting is 1 the person is asked, and
/// a ticked box sets it, whichever button was pressed with it.
bool MayShowIncidents(Settings& settings, Prompts& prompts);
