#pragma once

#include "calendar/timetable.h"
#include "controls/kept_writing.h"
#include "store/kept_row.h"

#include <QWidget>

#include <optional>

class LayoutToolbar;
class QAction;
class QMenu;
class Session;
class TimetableEditor;
class TimetablePanel;

/// The personal timetable. What is changed on it is kept like all that is typed, and whenever it
/// closes or shows something else the whole grid is saved, with what stands in an open editor.
class TimetableWindow : public QWidget {
    Q_OBJECT

public:
    explicit TimetableWindow(Session& session);
    ~TimetableWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void showWeekAgain();
    void changed();
    void load();
    void make(const TimetableYear& year);
    LayoutToolbar* makeToolbar();
    void makePopup();
    void selectCurrentWeek();
    void chooseWeek(int index);
    void showWeek(int index);
    void select(int day, int period);
    void openEditor();
    void applyEditor();
    void dismissEditor();
    void copy();
    void paste();
    bool save();
    void exportToWord();
    void savePicture();

    Session& m_session;
    TimetableYear m_year;
    TimetableGrid m_grid;
    std::optional<CopiedCell> m_copied;
    TimetablePanel* m_panel = nullptr;
    TimetableEditor* m_editor = nullptr;
    QMenu* m_popup = nullptr;
    QAction* m_paste = nullptr;
    int m_shownWeek = 0; ///< an element of the list of weeks
    bool m_isSaving = false;
    bool m_isChanged = false; ///< since it was saved or shown last
    ToldOnce m_failure;
    KeptWriting m_writing; ///< last
};
