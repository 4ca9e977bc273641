#include "year/year_away.h"

#include "core/prompts.h"

bool YearAway::reopen(Session& session) const {
    session.DatabasePath = m_path;
    if (session.OpenDatabaseFile(m_path, m_password) == OpenDone)
        return true;
    const OpenFailure failure = openFailure(session.LastOpenFault(), m_path);
    session.GetSeams().prompts.PlainBox(failure.text, OkButton | WarningIcon, failure.title);
    return false;
}
