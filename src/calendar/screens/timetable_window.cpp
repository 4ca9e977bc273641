#include "calendar/screens/timetable_window.h"

#include "calendar/screens/timetable_cell.h"
#include "calendar/screens/timetable_editor.h"
#include "calendar/screens/timetable_panel.h"
#include "calendar/term_weeks.h"
#include "calendar/timetable_document.h"
#include "calendar/timetable_settings.h"
#include "controls/layout_toolbar.h"
#include "core/clock.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/saved_picture.h"
#include "core/session.h"
#include "core/settings.h"
#include "store/engine/error.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox timetableUnread{u"Load Timetable Error",
                                     u"An error occured whilst loading the Timetable.\n\nPlease "
                                     u"report the error to the author.\n\nError number: %2"};
constexpr FailureBox timetableUnsaved{
    u"Save Timetable Error", u"The timetable could not be saved:\n\n%1\n\nError number: %2"};

} // namespace

TimetableWindow::TimetableWindow(Session& session)
    : m_session(session)
    , m_writing(*this, session.GetSeams(),
                {.what = u"The timetable"_s,
                 .save = [this] { return !m_isChanged || save(); },
                 .leave =
                     [this] {
                         applyEditor();
                         return save() ? Leaving::Done : Leaving::Failed;
                     }}) {
    setObjectName(u"TTfrm"_s);
    load();
    m_panel->selectedLabel()->setFocus();
    connect(&session.GetNotices(), &Notices::classesChanged, this, &TimetableWindow::showWeekAgain);
}

TimetableWindow::~TimetableWindow() {
    m_writing.end();
}

void TimetableWindow::load() {
    try {
        m_year = readTimetableYear(m_session.CurrentDB);
        make(m_year);
        selectCurrentWeek();
    } catch (const dao::EngineError& error) {
        if (!m_panel)
            make(m_year);
        tellFailure(m_session.GetSeams().prompts, timetableUnread, error);
    }
}

void TimetableWindow::make(const TimetableYear& year) {
    setWindowTitle(timetableTitle(year));
    m_grid = TimetableGrid(year.periodsPerDay);
    const FontRecord font =
        m_session.GetSettings().ReadFontRecord(setting::keyOf(setting::Timetable));
    m_panel = new TimetablePanel(year, font, m_session.GradientsEnabled);
    m_editor = new TimetableEditor(m_session.GetSeams().prompts, m_panel);
    auto* bar = new QMenuBar;
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->setMenuBar(bar);
    layout->addWidget(makeToolbar());
    layout->addWidget(m_panel, 1);
    makePopup();
    connect(m_panel, &TimetablePanel::cellPressed, this, &TimetableWindow::select);
    connect(m_panel, &TimetablePanel::backgroundPressed, this, &TimetableWindow::applyEditor);
    connect(m_panel, &TimetablePanel::editWanted, this, &TimetableWindow::openEditor);
    connect(m_panel, &TimetablePanel::menuWanted, this,
            [this](QPoint place) { m_popup->popup(place); });
    connect(m_editor, &TimetableEditor::accepted, this, &TimetableWindow::applyEditor);
    connect(m_editor, &TimetableEditor::cancelled, this, &TimetableWindow::dismissEditor);
    connect(&m_panel->weekList(), &QComboBox::currentIndexChanged, this,
            &TimetableWindow::chooseWeek);
}

/// The buttons that have something behind them; a group begins with a separator.
LayoutToolbar* TimetableWindow::makeToolbar() {
    struct Button {
        int group;
        QString tip;
        QString icon;
        std::function<void()> act;
    };
    QList<Button> buttons{
        {1, u"Save Settings."_s, u"save"_s,
         [this] {
             m_failure.reset();
             save();
         }},
        {2, u"Export to MSWord."_s, u"export"_s, [this] { exportToWord(); }},
        {2, u"Save as BMP picture."_s, u"picture"_s, [this] { savePicture(); }},
    };
    if (m_session.GetWindows().has(ToolWindow::Settings))
        buttons.insert(1, {2, u"Timetable Settings."_s, u"settings"_s, [this] {
                               m_session.GetWindows().open(ToolWindow::Settings,
                                                           qint64{TimetableSettingsPage});
                           }});
    QString layout;
    QStringList tips;
    QStringList icons;
    for (int i = 0; i < buttons.size(); ++i) {
        layout += i > 0 && buttons[i].group != buttons[i - 1].group ? u"|B"_s : u"B"_s;
        tips += buttons[i].tip;
        icons += buttons[i].icon;
    }
    auto* toolbar = new LayoutToolbar(u"TT_Btns"_s, layout, tips.join(u'|'), icons.join(u'|'));
    for (int i = 0; i < buttons.size(); ++i)
        connect(toolbar->button(i), &QAction::triggered, this, buttons[i].act);
    return toolbar;
}

void TimetableWindow::makePopup() {
    m_popup = new QMenu(this);
    m_popup->setObjectName(u"mnuPopup"_s);
    const auto add = [this](const QString& caption, QKeySequence::StandardKey key,
                            void (TimetableWindow::*act)()) {
        QAction* action = m_popup->addAction(caption);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        m_panel->addAction(action);
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    QAction* edit = m_popup->addAction(u"Edit...\tF2"_s, this, &TimetableWindow::openEditor);
    edit->setObjectName(u"mnuEdit"_s);
    m_popup->addSeparator();
    add(u"Copy"_s, QKeySequence::Copy, &TimetableWindow::copy)->setObjectName(u"mnuCopy"_s);
    m_paste = add(u"Paste"_s, QKeySequence::Paste, &TimetableWindow::paste);
    m_paste->setObjectName(u"mnuPaste"_s);
    m_paste->setEnabled(false);
}

/// To select a week shows it; the list stands on week A already.
void TimetableWindow::selectCurrentWeek() {
    const QDate today = m_session.GetSeams().clock.today();
    const bool isB = m_year.twoWeeks && IsWeek2(m_session.CurrentDB, today) == u"B";
    const QSignalBlocker blocker(&m_panel->weekList());
    m_panel->weekList().setCurrentIndex(isB ? 1 : 0);
    showWeek(isB ? 1 : 0);
}

/// What has changed here is in the file before it is read. Its own saving is no news.
void TimetableWindow::showWeekAgain() {
    if (!m_isSaving && m_writing.save())
        showWeek(m_shownWeek);
}

/// The week that was shown is saved first; where that fails it stays.
void TimetableWindow::chooseWeek(int index) {
    if (m_writing.leave())
        return showWeek(index);
    const QSignalBlocker blocker(&m_panel->weekList());
    m_panel->weekList().setCurrentIndex(m_shownWeek);
}

void TimetableWindow::showWeek(int index) {
    dismissEditor();
    m_shownWeek = index;
    m_isChanged = false;
    try {
        LoadTT(m_session.CurrentDB, index, m_grid);
    } catch (const dao::EngineError& error) {
        tellFailure(m_session.GetSeams().prompts, timetableUnread, error);
    }
    m_panel->showGrid(m_grid);
}

void TimetableWindow::select(int day, int period) {
    applyEditor();
    m_panel->selectCell(day, period);
    m_panel->selectedLabel()->setFocus();
}

void TimetableWindow::openEditor() {
    TimetableCellLabel* cell = m_panel->selectedLabel();
    if (!cell)
        return;
    applyEditor();
    cell->setFocusPolicy(Qt::ClickFocus); // it lies below the editor
    m_editor->open(m_grid.at(cell->day(), cell->period()), cellPlace(cell->day(), cell->period()),
                   cell->geometry());
}

void TimetableWindow::applyEditor() {
    if (m_editor->isHidden())
        return;
    m_grid.applyEdit(m_panel->selectedDay(), m_panel->selectedPeriod(), m_editor->edit());
    dismissEditor();
    m_panel->showGrid(m_grid);
    changed();
}

void TimetableWindow::changed() {
    m_isChanged = true;
    m_writing.typed();
}

void TimetableWindow::dismissEditor() {
    if (m_editor->isHidden())
        return;
    m_panel->selectCell(m_panel->selectedDay(), m_panel->selectedPeriod());
    m_panel->selectedLabel()->setFocus();
    m_editor->reset();
}

void TimetableWindow::copy() {
    if (!m_panel->selectedLabel())
        return;
    m_copied = m_grid.copied(m_panel->selectedDay(), m_panel->selectedPeriod());
    m_paste->setEnabled(true);
}

void TimetableWindow::paste() {
    m_grid.paste(m_panel->selectedDay(), m_panel->selectedPeriod(), *m_copied);
    m_panel->showGrid(m_grid);
    changed();
}

bool TimetableWindow::save() {
    const QScopedValueRollback saving(m_isSaving, true);
    try {
        SaveTTinfo(m_session, m_shownWeek, m_grid);
        m_isChanged = false;
        m_failure.reset();
        return true;
    } catch (const dao::EngineError& error) {
        if (m_failure.first())
            tellFailure(m_session.GetSeams().prompts, timetableUnsaved, error);
    }
    return false;
}

/// The document shows what is in the file.
void TimetableWindow::exportToWord() {
    applyEditor();
    if (m_writing.save())
        ExportTimetable(m_session, documentPlace(m_session));
}

void TimetableWindow::savePicture() {
    ::savePicture(m_session.GetSeams().prompts, m_session.FolderDefaults[SaveFolder].folder,
                  m_panel->picture(), {u"Bitmap (*.bmp)"_s, u"*.bmp"_s}, SavedFormats::Bitmap);
}

void TimetableWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    // A cell without a colour of its own has the scheme's.
    if (event->type() == QEvent::PaletteChange && m_panel)
        m_panel->showGrid(m_grid);
}

void TimetableWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(m_writing.mayGo());
}
