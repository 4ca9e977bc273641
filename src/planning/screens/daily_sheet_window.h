#pragma once

#include "controls/kept_writing.h"
#include "core/tool_windows.h"
#include "planning/daily_sheets.h"

#include <QHash>
#include <QWidget>

#include <memory>
#include <vector>

class BottomBlocks;
class FormatTools;
class LinksPanel;
class MaximiseButton;
class PeriodArea;
class QLabel;
class QStackedWidget;
class RichTextBox;
class SheetBar;
class SheetCommands;
class ShortTermPlanPanel;

/// The daily planning sheet: the teacher's desk diary, a sheet a date. What is written on it is on
/// disk at the latest two seconds after the first key that is not, and whenever the window, the
/// program or the sheet is left; nobody has to save.
class DailySheetWindow : public QWidget {
    Q_OBJECT

public:
    explicit DailySheetWindow(Session& session);
    ~DailySheetWindow() override;

    /// Goes to the sheet of a date, for other windows.
    void ShowPlan(QDate date) { m_sheets.ShowPlan(date); }
    /// Lays the short term plan of a period over the sheet, or that of another period in place of
    /// the one that is open. Stays as it is where that could not be saved.
    void ZoomIn(int period);
    /// Saves the short term plan and shows the sheet again.
    void ZoomOut();
    /// Goes to the sheet of a text and selects it there.
    void showText(const SheetText& text);
    QSize sizeHint() const override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeParts();
    QWidget* makeSheet();
    QWidget* makeMaximised();
    void makeMenus();
    void layOut(QWidget* sheet);
    void bindBoxes();
    void bindClass(int period);
    void bindRichText(RichTextBox& box, const SheetPlace& place);
    void connectCommands();
    void connectExports();
    void followTheYear();

    void sheetChanged();
    void showClassesAgain();
    void setHasSheet(bool hasSheet);
    void applyDefaultFont();
    void selectPeriod(int period);
    void pickDate(QDate date);
    void openRegister();
    void enableCommands();
    void togglePlan();
    void makePlanPanel();
    void showPlan(bool isAnother);
    void listPlannable();
    void putPlanAway();
    void closePlan();
    void showSheetPage();
    void openHistory();
    void carryOut(SheetEvent event);

    void toggleMaximised();
    void restore();
    void placeMaximiseButton();

    Session& m_session;
    DailySheets m_sheets;
    bool m_showsCoding;
    FormatTools* m_tools;
    SheetCommands* m_commands;
    SheetBar* m_bar = nullptr;
    PeriodArea* m_periods = nullptr;
    BottomBlocks* m_bottom = nullptr;
    LinksPanel* m_links = nullptr;
    QStackedWidget* m_pages = nullptr; ///< the sheet, the page of a maximised lesson, the plan
    QLabel* m_maximisedHeading = nullptr;
    QWidget* m_maximisedPage = nullptr;
    int m_maximised = 0; ///< the period whose lesson is maximised; 0 is none
    MaximiseButton* m_maximiseButton = nullptr;
    ShortTermPlanPanel* m_planPanel = nullptr; ///< made with the first plan that is opened
    std::vector<std::unique_ptr<BoundBox>> m_bound;
    QHash<RichTextBox*, SheetPlace> m_places;
    KeptWriting m_writing; ///< last
};
