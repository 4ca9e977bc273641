#include "planning/screens/search_window.h"

#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/session.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// In so many steps the bar moves: each is painted, which takes its time from the hunt.
constexpr int SearchSteps = 20;
constexpr int SearchBarHeight = 6;
constexpr int SearchTextWidth = 32;  ///< characters
constexpr int MostKeptSearches = 20; ///< earlier texts

QPushButton* makeSearchButton(int element) {
    auto* button = new QPushButton;
    button->setObjectName(u"ButtonEx1(%1)"_s.arg(element));
    button->setAutoDefault(true); // so that Return presses it
    return button;
}

} // namespace

SearchWindow::SearchWindow(Session& session) : m_session(session) {
    setObjectName(u"SearchFrm"_s);
    setWindowTitle(u"Find"_s);
    auto* layout = new QVBoxLayout(this);
    makeQuery(*layout);
    makeButtons(*layout);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    m_turn.setSingleShot(true);
    connect(&m_turn, &QTimer::timeout, this, &SearchWindow::look);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this,
            &SearchWindow::callOffOrClose);
    showState();
}

void SearchWindow::makeQuery(QVBoxLayout& layout) {
    auto* label = new QLabel(u"F&ind what:"_s);
    m_text = new QComboBox;
    m_text->setObjectName(u"Combo1"_s);
    m_text->setAccessibleName(u"Text to find"_s);
    m_text->setEditable(true);
    m_text->lineEdit()->setAccessibleName(m_text->accessibleName());
    m_text->setCompleter(nullptr); // it would change what is typed into what was typed before
    m_text->setInsertPolicy(QComboBox::NoInsert);
    m_text->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_text->setMinimumContentsLength(SearchTextWidth);
    m_text->addItems(m_session.EarlierSearches);
    m_text->setCurrentIndex(-1);
    label->setBuddy(m_text);
    auto* lessons = new QRadioButton(u"Main Activities "_s);
    lessons->setObjectName(u"Opt1(0)"_s);
    lessons->setChecked(true);
    m_homework = new QRadioButton(u"Homeworks"_s);
    m_homework->setObjectName(u"Opt1(1)"_s);
    m_matchCase = new QCheckBox(u"Match Case"_s);
    m_matchCase->setObjectName(u"Check2"_s);
    auto* options = new QHBoxLayout;
    for (QWidget* option : {static_cast<QWidget*>(lessons), static_cast<QWidget*>(m_homework),
                            static_cast<QWidget*>(m_matchCase)})
        options->addWidget(option);
    layout.addWidget(label);
    layout.addWidget(m_text);
    layout.addLayout(options);
    connect(m_text, &QComboBox::editTextChanged, this, &SearchWindow::startOver);
    connect(m_homework, &QRadioButton::toggled, this, &SearchWindow::startOver);
    connect(m_matchCase, &QCheckBox::toggled, this, &SearchWindow::startOver);
}

void SearchWindow::makeButtons(QVBoxLayout& layout) {
    m_progress = new QProgressBar;
    m_progress->setObjectName(u"Progress"_s);
    m_progress->setAccessibleName(u"Sheets looked through"_s);
    m_progress->setRange(0, SearchSteps);
    m_progress->setTextVisible(false);
    m_progress->setFixedHeight(SearchBarHeight);
    m_find = makeSearchButton(0);
    m_close = makeSearchButton(1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_find);
    buttons->addWidget(m_close);
    layout.addWidget(m_progress);
    layout.addLayout(buttons);
    connect(m_text->lineEdit(), &QLineEdit::returnPressed, m_find, &QPushButton::click);
    connect(m_find, &QPushButton::clicked, this, &SearchWindow::find);
    connect(m_close, &QPushButton::clicked, this, &SearchWindow::callOffOrClose);
}

/// In the middle of the sheet that it was asked from.
void SearchWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    const auto* area = parentWidget() ? parentWidget()->findChild<QMdiArea*>() : nullptr;
    const QMdiSubWindow* sheet = area ? area->currentSubWindow() : nullptr;
    if (sheet && !event->spontaneous())
        move(sheet->mapToGlobal(sheet->rect().center()) - rect().center());
}

void SearchWindow::closeEvent(QCloseEvent* event) {
    callOff(); // it goes from the event loop, the year may be gone before
    QWidget::closeEvent(event);
}

LessonQuery SearchWindow::query() const {
    return {.text = m_text->currentText(),
            .box = m_homework->isChecked() ? SheetBox::Homework : SheetBox::Lesson,
            .matchesCase = m_matchCase->isChecked()};
}

void SearchWindow::find() {
    if (isLooking())
        return;
    keepText();
    if (!m_search)
        m_search.emplace(m_session, query());
    m_turn.start();
    showState();
}

/// The text comes to stand first in the list.
void SearchWindow::keepText() {
    const QString text = m_text->currentText();
    QStringList& kept = m_session.EarlierSearches;
    kept.removeAll(text);
    kept.prepend(text);
    kept.resize(qMin<qsizetype>(kept.size(), MostKeptSearches));
    const QSignalBlocker blocker(m_text);
    m_text->clear();
    m_text->addItems(kept);
    m_text->setEditText(text);
}

void SearchWindow::look() {
    LessonSearch::State state = LessonSearch::State::Ended;
    if (!tryTelling(m_session.GetSeams().prompts, {u"Find"}, [&] { state = m_search->lookOn(); }))
        return startOver();
    if (state == LessonSearch::State::Looking) {
        m_turn.start();
        return showState();
    }
    if (state == LessonSearch::State::Found)
        showHit();
    else
        tellEnd();
}

void SearchWindow::showHit() {
    m_hasHit = true;
    showState();
    const LessonHit& hit = m_search->hit();
    m_session.GetWindows().open(
        ToolWindow::DailySheet,
        SheetText{.date = sheetDate(hit.planDate),
                  .period = hit.period,
                  .isHomework = m_homework->isChecked(),
                  .start = static_cast<int>(hit.position),
                  .length = static_cast<int>(m_text->currentText().size())});
    giveWay();
}

/// Moves off the box that shows the hit, below it or above.
void SearchWindow::giveWay() {
    const QWidget* shown = parentWidget() ? parentWidget()->focusWidget() : nullptr;
    if (!shown)
        return;
    const QRect hidden(shown->mapToGlobal(QPoint()), shown->size());
    const QRect frame = frameGeometry();
    if (!frame.intersects(hidden))
        return;
    const bool fitsBelow =
        hidden.bottom() + frame.height() < screen()->availableGeometry().bottom();
    move(frame.left(), fitsBelow ? hidden.bottom() + 1 : hidden.top() - frame.height());
}

void SearchWindow::tellEnd() {
    const QString text = m_hasHit ? u"No further occurances have been found."_s
                                  : u"No occurances have been found."_s;
    startOver();
    m_session.GetSeams().prompts.msg_Box(text, OkButton | InformationIcon, u"Find"_s);
    activateWindow(); // else the next key would go to the sheet, in place of what is selected there
}

/// What was looked through stays so where there was a hit.
void SearchWindow::callOff() {
    m_turn.stop();
    if (!m_hasHit)
        m_search.reset();
    showState();
}

void SearchWindow::startOver() {
    m_hasHit = false;
    callOff();
}

void SearchWindow::callOffOrClose() {
    if (isLooking())
        callOff();
    else
        close();
}

void SearchWindow::showState() {
    constexpr int whole = 100;
    m_progress->setValue(m_search ? m_search->percentDone() * SearchSteps / whole : 0);
    m_find->setText(m_hasHit ? u"Find Next"_s : u"Find First"_s);
    m_find->setEnabled(!m_text->currentText().isEmpty());
    m_close->setText(isLooking() ? u"Stop"_s : u"Close"_s);
}
