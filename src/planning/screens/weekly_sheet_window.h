#pragma once

#include "controls/kept_writing.h"
#include "planning/weekly_sheets.h"

#include <QWidget>

#include <vector>

class FormatTools;
class LayoutToolbar;
class LessonSlotWidget;
class LinksPanel;
class MaximiseButton;
class QComboBox;
class QAction;
class QLabel;
class QMenu;
class QScrollArea;
class QToolButton;
class QVBoxLayout;
class RichTextBox;

/// The weekly planning sheet: the lessons of one class over one teaching week, one below the other.
/// The boxes hold the only copy of what is written until the next write, which comes with every
/// change of the week or class, when the window closes or loses the focus, and at the latest two
/// seconds after the first key that is not on disk.
class WeeklySheetWindow : public QWidget {
    Q_OBJECT

public:
    explicit WeeklySheetWindow(Session& session);
    ~WeeklySheetWindow() override;

    QSize sizeHint() const override;

    /// Writes the slots back and shows those of the selected class in a week, counted from 0.
    /// Where what was typed can't be written, everything stays as it is.
    void showWeek(int week);
    /// The same with the week that is shown.
    void reload();
    /// Writes what was typed. Answers false where something could not be written, which the person
    /// has been told.
    void exportToWord();
    bool writeLessons();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeParts();
    QComboBox* makeSelector(const QString& name, const QString& list, const QString& meaning);
    QToolButton* makeMoveButton(int element, const QString& icon, const QString& tip, int step);
    QWidget* makeSelectors();
    LayoutToolbar* makeToolbar();
    void makeMenus();
    void makeMaximiseButton();
    void fillLists();
    void showClassesAgain();
    void showSlots();
    void addSlot(int element, const LessonSlot& slot);
    void addNotice(const QString& notice);
    void selectEntries(int week, int classIndex);
    void enableMoves();
    void applyDefaultFont();
    void selectSlot(int element);
    void showSlotLinks();
    void toggleMaximised();
    void restore();
    void placeMaximiseButton();

    Session& m_session;
    WeeklySheets m_sheets;
    FormatTools* m_tools;
    QComboBox* m_week = nullptr;
    QComboBox* m_class = nullptr;
    QToolButton* m_previous = nullptr;
    QToolButton* m_next = nullptr;
    QLabel* m_heading = nullptr;
    QScrollArea* m_scroll = nullptr;
    QVBoxLayout* m_column = nullptr; ///< of the slots
    LinksPanel* m_links = nullptr;
    QMenu* m_slotMenu = nullptr;
    QAction* m_maximise = nullptr;
    MaximiseButton* m_maximiseButton = nullptr;
    std::vector<LessonSlotWidget*> m_slots;
    int m_shownWeek = -1;
    int m_shownClass = -1;
    int m_selected = -1; ///< the element of the selected slot
    bool m_isMaximised = false;
    KeptWriting m_writing; ///< last
};
