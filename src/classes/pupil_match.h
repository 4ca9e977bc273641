#pragma once

#include "classes/class_views.h"
#include "store/engine/database.h"

#include <QHash>
#include <QString>

#include <optional>

/// Finds the pupils of a class by the names that stand in a foreign file: in any case, with accents
/// composed or decomposed. A name that is longer than the class has room for is found by what there
/// is of it, since that is how it came in. Of pupils of one name the first by `ID` is found.
class PupilMatch {
public:
    /// Raises what the engine raises.
    PupilMatch(const dao::Database& database, const QString& classCode);

    std::optional<qint64> find(const PupilName& name) const; ///< his `ID`

private:
    QString keyOf(const PupilName& name) const;

    int m_surnameSize = 0; ///< characters
    int m_firstnameSize = 0;
    QHash<QString, qint64> m_pupils;
};
