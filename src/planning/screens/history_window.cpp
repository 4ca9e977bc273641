#include "planning/screens/history_window.h"

#include "controls/box_objects.h"
#include "controls/icons.h"
#include "controls/rich_text_box.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/window_placement.h"
#include "planning/planning_settings.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum HistoryText { LessonText, HomeworkText };

constexpr QSize HistorySize(460, 420);
constexpr int HistoryLessonShare = 7;
constexpr int HistoryHomeworkShare = 3;
constexpr int HistoryListWidth = 26; ///< characters

} // namespace

HistoryWindow::HistoryWindow(Session& session) : m_session(session) {
    setObjectName(u"CPlanFrm"_s);
    resize(HistorySize);
    m_splitter = new QSplitter(Qt::Vertical);
    m_splitter->setObjectName(u"PSplit"_s);
    m_splitter->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(makeSelector());
    layout->addWidget(m_splitter, 1);
    m_splitter->addWidget(makeText(LessonText, u"Main Activity:"_s, u"Lesson"_s));
    m_splitter->addWidget(makeText(HomeworkText, u"Homework:"_s, u"Homework"_s));
    m_splitter->setStretchFactor(LessonText, HistoryLessonShare);
    m_splitter->setStretchFactor(HomeworkText, HistoryHomeworkShare);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    followTheYear();
}

QWidget* HistoryWindow::makeSelector() {
    m_lessons = new QComboBox;
    m_lessons->setObjectName(u"Combo1"_s);
    m_lessons->setAccessibleName(u"Lesson of the class"_s);
    m_lessons->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_lessons->setMinimumContentsLength(HistoryListWidth);
    connect(m_lessons, &QComboBox::currentIndexChanged, this, &HistoryWindow::showEntry);
    m_back = makeMoveButton(0, u"previous"_s, u"Move back one lesson"_s, 1);
    m_forward = makeMoveButton(1, u"next"_s, u"Move forward one lesson"_s, -1);
    auto* selector = new QWidget;
    auto* layout = new QHBoxLayout(selector);
    layout->setContentsMargins({});
    layout->addWidget(m_back);
    layout->addWidget(m_lessons, 1);
    layout->addWidget(m_forward);
    return selector;
}

/// The list runs newest first, so that a step down in it is one back in time.
QToolButton* HistoryWindow::makeMoveButton(int element, const QString& iconName, const QString& tip,
                                           int step) {
    auto* button = new QToolButton;
    button->setObjectName(u"Command2(%1)"_s.arg(element));
    button->setIcon(icon(iconName));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this,
            [this, step] { m_lessons->setCurrentIndex(m_lessons->currentIndex() + step); });
    return button;
}

QWidget* HistoryWindow::makeText(int element, const QString& heading, const QString& name) {
    auto* box = new RichTextBox(name);
    box->setObjectName(u"Text1(%1)"_s.arg(element));
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    connect(box, &RichTextBox::menuWanted, this, [box](const QPoint& place) {
        QMenu* menu = box->createStandardContextMenu();
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(place);
    });
    connect(box, &RichTextBox::objectActivated, this,
            [this, box] { openObjectOfBox(m_session, *box); });
    m_texts.at(element) = box;
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(new QLabel(heading));
    layout->addWidget(box, 1);
    return part;
}

void HistoryWindow::followTheYear() {
    for (auto notice :
         {&Notices::currentClassChanged, &Notices::classesChanged, &Notices::sheetsChanged})
        connect(&m_session.GetNotices(), notice, this, &HistoryWindow::FindPreviousWork);
}

void HistoryWindow::FindPreviousWork() {
    m_class = m_session.CurrentClass;
    if (m_class.isEmpty())
        return hide();
    if (!tryTelling(m_session.GetSeams().prompts, {u"History Error"},
                    [this] { m_history = LoadClassHistory(m_session, m_class); }) ||
        m_history.isEmpty()) {
        close();
        return;
    }
    ReloadHistory();
    setAttribute(Qt::WA_ShowWithoutActivating);
    show();
    raise();
}

void HistoryWindow::showAsked() {
    FindPreviousWork();
    if (isHidden())
        return;
    placeSplitter();
    activateWindow();
}

/// Puts the splitter where it stood when the viewer was closed, now that it has its height.
void HistoryWindow::placeSplitter() {
    if (std::exchange(m_isSplitterPlaced, true))
        return;
    const int upper = m_session.GetSettings().get(setting::Splitbar) / TwipsPerPixel;
    layout()->activate();
    if (upper > 0)
        m_splitter->setSizes({upper, qMax(1, m_splitter->height() - upper)});
}

void HistoryWindow::ReloadHistory() {
    QStringList entries;
    for (qsizetype k = 0; k < m_history.size(); ++k)
        entries += listText(listEntry(m_history, k));
    const QSignalBlocker blocker(m_lessons);
    m_lessons->clear();
    m_lessons->addItems(entries);
    m_lessons->setCurrentIndex(static_cast<int>(previousLesson(m_session, m_history)));
    showEntry();
}

void HistoryWindow::showEntry() {
    const int place = m_lessons->currentIndex();
    const HistoryEntry& entry = listEntry(m_history, place);
    m_texts[LessonText]->setRtf(entry.lesson);
    m_texts[HomeworkText]->setRtf(entry.homework);
    setWindowTitle(historyTitle(m_class, place + 1, m_history.size()));
    m_back->setEnabled(place < m_history.size() - 1);
    m_forward->setEnabled(place > 0);
}

void HistoryWindow::closeEvent(QCloseEvent* event) {
    m_session.GetNotices().disconnect(this); // it goes from the event loop, and must not come back
    m_session.GetSettings().set(setting::Splitbar,
                                m_splitter->sizes().value(LessonText) * TwipsPerPixel);
    QWidget::closeEvent(event);
}
