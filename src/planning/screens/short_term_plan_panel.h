#pragma once

#include "planning/daily_sheets.h"

#include <QWidget>

#include <memory>
#include <vector>

class FormatTools;
class QComboBox;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class RichTextBox;
class ShortTermPlan;
struct FontRecord;

/// The panel that lies over a daily sheet with the short term plan of one of its periods. The
/// period's lesson and homework are the sheet's own boxes, which stand here meanwhile.
class ShortTermPlanPanel : public QWidget {
    Q_OBJECT

public:
    /// Ties its boxes to the plan, which has to be closed still. `terms`: how many the year has.
    ShortTermPlanPanel(ShortTermPlan& plan, int terms, FormatTools& tools,
                       QWidget* parent = nullptr);

    /// The sheet's heading and the periods to choose from.
    void showSheet(const QString& heading, const QList<PlannablePeriod>& periods);
    /// Whose plan it is; the one that is chosen in the list, if it stands there.
    void showPeriod(int period);
    /// Gives the boxes of lesson and homework their places here.
    void takeIn(RichTextBox& lesson, RichTextBox& homework);
    void applyDefaultFont(const FontRecord& font);

signals:
    /// The person has changed something in the plan; the sheet's own boxes tell by themselves.
    void edited();
    void periodChosen(int period);
    void closeWanted();

private:
    QWidget* makeHeader();
    void makePeriodList();
    QGroupBox* makeDetails(int terms);
    QGroupBox* makeTimings();
    QWidget* makeTexts(FormatTools& tools);
    QComboBox* makeSubject();
    QComboBox* makeChoice(const QString& field, const QString& name, const QStringList& choices);
    QLineEdit* makeLine(const QString& field, const QString& name);
    RichTextBox* makeText(FormatTools& tools, const QString& field, const QString& name);

    ShortTermPlan& m_plan;
    QLabel* m_period;
    QLabel* m_heading;
    QListWidget* m_periods;
    QGridLayout* m_texts = nullptr;
    std::vector<RichTextBox*> m_boxes; ///< those of the plan, in the order of Tab
    std::vector<std::unique_ptr<BoundBox>> m_bound;
};
