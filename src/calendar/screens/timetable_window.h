#pragma once

#include "calendar/timetable.h"

#include <QWidget>

#include <optional>

class LayoutToolbar;
class QAction;
class QMenu;
class Session;
class TimetableEditor;
class TimetablePanel;

namespace setting {
/// The key with the place of the timetable's window and the font of its grid.
inline constexpr QStringView Timetable = u"Timetable";
} // namespace setting

/// The personal timetable. It is saved on its button and whenever it closes, with what the grid
/// holds: what stands in an open editor is not taken over first, and another week is shown without
/// saving the one that stood.
class TimetableWindow : public QWidget {
    Q_OBJECT

public:
    explicit TimetableWindow(Session& session);

    /// Shows the week that it shows as the file now has it.
    void showWeekAgain();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void load();
    void make(const TimetableYear& year);
    LayoutToolbar* makeToolbar();
    void makePopup();
    void selectCurrentWeek();
    void showWeek(int index);
    void select(int day, int period);
    void ShowEditBox();
    void HideEditBox();
    void dismissEditBox();
    void copy();
    void paste();
    bool save();
    void savePicture();

    Session& m_session;
    TimetableYear m_year;
    TimetableGrid m_grid;
    std::optional<CopiedCell> m_copied;
    TimetablePanel* m_panel = nullptr;
    TimetableEditor* m_editor = nullptr;
    QMenu* m_popup = nullptr;
    QAction* m_paste = nullptr;
};
