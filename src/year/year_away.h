#pragma once

#include "core/session.h"

/// The open year's file, while it is closed.
class YearAway {
public:
    explicit YearAway(const Session& session)
        : m_path(session.CurrentDB.Name()), m_password(session.DatabasePassword) {}

    const QString& path() const { return m_path; }
    const QString& password() const { return m_password; }
    /// Opens it again. Answers false where it does not open, which is told.
    bool reopen(Session& session) const;

private:
    QString m_path;
    QString m_password;
};
