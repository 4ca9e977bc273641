#pragma once

#include "planning/sheet_fields.h"
#include "store/engine/recordset.h"

#include <QString>
#include <QStringMatcher>

class Session;

/// What is looked for on the daily planning sheets.
struct LessonQuery {
    QString text;
    SheetBox box = SheetBox::Lesson; ///< or `Homework`
    bool matchesCase = false;
};

/// Where it stands for the first time in the lesson or homework of a period.
struct LessonHit {
    QString planDate;       ///< of the sheet, "yy-mm-dd"
    int period = 0;         ///< from 1 on
    qsizetype position = 0; ///< in the plain text, from 0, in UTF-16 units, as the boxes count
};

/// The hunt for a text through all sheets of the open year, in the order of their dates and
/// periods; each lesson or homework that holds the text is one hit. It goes on sheet by sheet, so
/// that whoever waits can do something else in between, and looks at each as it stands then,
/// however long ago the last hit was. Changes nothing.
class LessonSearch {
public:
    enum class State { Looking, Found, Ended };

    /// From the first sheet on. The text must not be empty.
    LessonSearch(const Session& session, const LessonQuery& query);

    /// Looks through one sheet, or what is left of the one with the last hit. `Looking`: there is
    /// nothing more on it. `Found`: `hit` says where. `Ended`: there is no further sheet. Raises
    /// what the engine raises; what was looked through before stays so.
    State lookOn();
    const LessonHit& hit() const { return m_hit; }
    /// How much of the year is behind it, 0 to 100.
    int percentDone() const;

private:
    /// The next box to look at.
    struct Place {
        QString planDate;
        qint64 sheet = 0; ///< the row's `ID`; 0 before the first one
        int period = 1;
    };
    void open();
    bool lookThroughSheet();

    const Session& m_session;
    LessonQuery m_query;
    QStringMatcher m_matcher;
    Place m_next;
    dao::Recordset m_rows; ///< from that place on; none while nobody looks
    LessonHit m_hit;
    int m_count = 0; ///< of all sheets, as the next
    int m_left = 0;
};
