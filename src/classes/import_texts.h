#pragma once

#include "store/engine/structure.h"
#include "store/engine/value.h"

#include <QString>
#include <QStringList>

class Prompts;

/// Texts on their way from a foreign file into fields of the year. One that is too long for its
/// field is cut; where that was, the person is told at the end.
class ImportTexts {
public:
    /// What the field takes of a text that stands at `place`: of one too long the beginning, Null
    /// for an empty one where it takes none such.
    dao::Value fitted(const QString& text, const dao::Field& field, const QString& place);
    /// The same for a value of another table's field, which may be no text.
    dao::Value fitted(const dao::Value& value, const dao::Field& field, const QString& place);

    /// Tells the places of what was cut, if anything. `rows` says what they are.
    void tellCut(Prompts& prompts, const QString& title, const QString& rows) const;

private:
    QStringList m_cut;
};
