#include "organiser/screens/reminder_window.h"

#include "controls/colours.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/shell.h"
#include "organiser/reminder_settings.h"

#include <QApplication>
#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr int ReminderWidth = 400;
constexpr int ButtonGap = 14;  ///< between the message and the button: 210 twips
constexpr int BelowMemo = 53;  ///< from the message to the lower edge: 800 twips
constexpr int MemoMargin = 12; ///< on its other sides

} // namespace

ReminderWindow::ReminderWindow(Session& session, const ScheduleItem& item)
    : m_session(session), m_memo(new QLabel(item.memo)), m_ok(new QPushButton(u"OK"_s)) {
    setObjectName(u"ReminderFrm"_s);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(item.caption + u" : "_s +
                   QLocale().toString(dueTime(item).date(), m_session.ShortDateFormat));
    makeParts();
    fit();
    connect(&session.GetNotices(), &Notices::yearClosing, this, &QDialog::reject);
    play(item);
}

ReminderWindow::~ReminderWindow() {
    if (m_loops)
        m_session.GetSeams().shell.PlaySoundFile({}, false);
}

void ReminderWindow::makeParts() {
    m_memo->setObjectName(u"lbMemo"_s);
    m_memo->setTextFormat(Qt::PlainText);
    m_memo->setWordWrap(true);
    m_memo->setAlignment(Qt::AlignTop);
    m_memo->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* scroll = new QScrollArea;
    scroll->setWidget(m_memo);
    scroll->setWidgetResizable(true);
    scroll->setFrameStyle(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_ok->setObjectName(u"cmdOK"_s);
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(MemoMargin, MemoMargin, MemoMargin,
                               qMax(0, BelowMemo - ButtonGap - m_ok->sizeHint().height()));
    layout->setSpacing(ButtonGap);
    layout->addWidget(scroll, 1);
    layout->addWidget(m_ok, 0, Qt::AlignHCenter);
    const Settings& settings = m_session.GetSettings();
    setBackground(this, toColour(settings.get(setting::SchedBackcolor)),
                  toColour(settings.get(setting::SchedFontcolor)));
}

/// As high as the message, or as the screen allows; then the message scrolls.
void ReminderWindow::fit() {
    constexpr double mostOfScreen = 0.8;
    const int memo = m_memo->heightForWidth(ReminderWidth - 2 * MemoMargin);
    const int below = qMax(BelowMemo, ButtonGap + m_ok->sizeHint().height());
    const int most = static_cast<int>(screen()->availableGeometry().height() * mostOfScreen);
    resize(ReminderWidth, qMin(MemoMargin + memo + below, most));
}

void ReminderWindow::play(const ScheduleItem& item) {
    if (item.alarm.isEmpty())
        return;
    m_loops = item.loops;
    m_session.GetSeams().shell.PlaySoundFile(item.alarm, item.loops, [window = QPointer(this)] {
        if (window)
            window->m_loops = false;
    });
}

void ReminderWindow::present(Session& session, const ScheduleItem& item) {
    auto* window = new ReminderWindow(session, item);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->winId(); // makes the native window, which can be tied to another
    if (const QWidget* waiting = QApplication::activeModalWidget())
        window->windowHandle()->setTransientParent(waiting->windowHandle());
    window->show();
    QApplication::alert(window);
}
