#pragma once

#include "store/engine/database.h"
#include "store/row_binding.h"

#include <QString>

#include <memory>
#include <vector>

class Session;

/// Makes the table of the short term plans where it is missing. Both raise what the engine raises.
void Check_STPdata(const dao::Database& database);
/// Deletes those plans of a period in which there is nothing: neither a text nor a rich text with a
/// character in it.
void Clean_STP(const dao::Database& database, const QString& planDate, int period);

/// The short term plan of a period of a sheet: a row of `STPdata` with the boxes that are bound to
/// it. It belongs to the date and the period and stays when the sheet is deleted.
///
/// Closed at first, it is open from `open` until `close`. A plan that does not exist yet begins
/// with the person's defaults and gets its row with the first write, so that looking at a plan
/// leaves nothing behind. A failure of the engine is told.
class ShortTermPlan {
public:
    explicit ShortTermPlan(Session& session);
    ~ShortTermPlan();

    /// Whether there can be a plan of the period: its number has one digit in the table.
    static bool takes(int period);
    /// The most characters that a text field holds.
    static int longestText(QStringView field);

    /// Ties a box to a field; it has to outlive the plan's use. A text that is emptied is nothing
    /// to be written: kept on purpose, the field has its old value then. A memo can be emptied.
    void bind(const QString& field, BoundBox& box);

    /// Shows the plan of a period of the sheet of a date ("yy-mm-dd"). One that is open is closed
    /// first. Answers whether it is open now.
    bool open(const QString& planDate, int period);
    bool isOpen() const { return m_period > 0; }
    int period() const { return m_period; } ///< 0 is none

    /// Writes what was changed, as RowBinding does; nothing without an open plan. A subject that is
    /// written is the last used one.
    bool flush();
    /// The same before the plan is closed. Answers whether it may be.
    Leaving leave();
    /// Shows no plan any more. What was not written is given up, a row with nothing in it goes.
    void close();

private:
    struct Bound {
        QString field;
        BoundBox* box;
        std::unique_ptr<BoundBox> filled; ///< of a text field: as the row's binding sees its box
        BoundBox& seen() const { return filled ? *filled : *box; }
    };

    dao::Recordset plans() const;
    void use(const dao::Recordset& plans);
    void showDefaults();
    void begin(QStringView field, const QString& text, bool isContent = true);
    bool prepare();
    void prepareRow();
    void addRow();
    void rememberSubject();

    Session& m_session;
    RowBinding m_binding;
    std::vector<Bound> m_bounds;
    dao::Recordset m_data;
    QString m_planDate;
    int m_period = 0;
    ToldOnce m_failure;
};
