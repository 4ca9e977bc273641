#include "organiser/screens/post_it_window.h"

#include "controls/colours.h"
#include "controls/edit_menu.h"
#include "controls/format_tools.h"
#include "controls/layout_toolbar.h"
#include "controls/rich_text_box.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/tool_windows.h"
#include "core/window_placement.h"
#include "organiser/post_it_commands.h"
#include "organiser/post_it_font.h"
#include "organiser/post_it_settings.h"
#include "organiser/screens/post_it_strip.h"
#include "richtext/rtf_parser.h"
#include "store/engine/error.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int noteWidth = FullNoteHeight / TwipsPerPixel;
constexpr int fullHeight = FullNoteHeight / TwipsPerPixel;
constexpr int stripHeight = 22;

bool windowsHaveOutlines() {
    const QString platform = QGuiApplication::platformName();
    return platform == u"xcb" || platform.startsWith(u"wayland");
}

} // namespace

PostItWindow::PostItWindow(Session& session, PostIt note)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint)
    , m_session(session)
    , m_note(std::move(note))
    , m_strip(new PostItStrip(toColour(session.GetSettings().get(setting::PostitCapCol)),
                              session.GradientsEnabled, this))
    , m_body(new RichTextBox(u"Text of the post-it note"_s, this,
                             toColour(session.GetSettings().get(setting::PostitCol))))
    , m_writing(*this, session.GetSeams(),
                {.what = u"A post-it note"_s,
                 .save = [this] { return isAsKept() || SavePositInfo(); },
                 .leave = [this] { return leave(); }}) {
    setObjectName(u"PostitFrm"_s);
    setWindowTitle(u"Post-it"_s);
    // Who has all notes shown goes on where the keyboard is; a new one is to be written in.
    setAttribute(Qt::WA_ShowWithoutActivating, !isNewNoteText(m_note.memo));
    makeParts();
    showNote();
    connect(m_body, &RichTextBox::edited, &m_writing, &KeptWriting::typed);
    connect(m_body, &RichTextBox::entered, this, &PostItWindow::enterBody);
    connect(&session.GetNotices(), &Notices::postItsDeleted, this, &PostItWindow::discard);
    m_strip->setFocus(); // who enters the text of a new note takes away what it says
}

PostItWindow::~PostItWindow() {
    m_writing.end();
}

void PostItWindow::makeParts() {
    m_strip->setFixedHeight(stripHeight);
    m_body->setObjectName(u"RT1"_s);
    m_body->setFrameStyle(QFrame::NoFrame);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_strip);
    layout->addWidget(m_body, 1);
    connect(m_strip, &PostItStrip::shrinkWanted, this, &PostItWindow::toggleShrink);
    connect(m_strip, &PostItStrip::closeWanted, this, &QWidget::close);
    connect(m_strip, &PostItStrip::menuWanted, this, &PostItWindow::showMenu);
    for (const Qt::Key key : {Qt::Key_F4, Qt::Key_W})
        connect(new QShortcut(Qt::CTRL | key, this), &QShortcut::activated, this, &QWidget::close);
}

void PostItWindow::showNote() {
    const bool isRich = richtext::isRichText(m_note.memo);
    m_body->setRtf(isRich ? m_note.memo : QString());
    const std::optional<FontRecord> font = postItFont(m_session.GetSettings());
    if (font)
        m_body->applyDefaultFont(*font);
    if (!isRich) {
        m_body->setSelectedText(QString(m_note.memo).remove(u'\r'));
        m_body->select(0, 0);
        m_body->document()->clearUndoRedoStacks();
        m_body->setDataChanged(false);
    }
    setShrunk(m_note.isShrunk);
    move(m_note.left / TwipsPerPixel, m_note.top / TwipsPerPixel);
}

/// What a new note says makes room for what is written; the tools for that come with the first
/// entry, since twenty notes may be shown and hardly one of them written in.
void PostItWindow::enterBody() {
    makeTools();
    if (!isNewNoteText(m_body->plainText()))
        return;
    m_body->clear();
    if (const std::optional<FontRecord> font = postItFont(m_session.GetSettings()))
        m_body->applyDefaultFont(*font);
    m_body->setDataChanged(true);
    m_writing.typed();
}

void PostItWindow::makeTools() {
    if (m_tools)
        return;
    m_tools = new FormatTools(m_session, u"BBB"_s, *this);
    m_tools->toolbar()->hide(); // the menus and keys alone
    m_tools->colourToolbar()->hide();
    m_tools->serve(*m_body);
}

void PostItWindow::toggleShrink() {
    setShrunk(height() > stripHeight);
    m_writing.typed();
}

void PostItWindow::setShrunk(bool isShrunk) {
    m_body->setHidden(isShrunk);
    m_strip->setShrunk(isShrunk);
    setFixedSize(noteWidth, isShrunk ? stripHeight : fullHeight);
}

/// A full-size note has its lower right corner turned up, where the window system can do that.
void PostItWindow::CreatePicRegion() {
    if (!windowsHaveOutlines())
        return;
    if (height() <= stripHeight || isMinimized())
        return clearMask();
    constexpr double across = 7.5;
    constexpr double upwards = 6.3;
    const QPoint corner(qRound(width() - width() / across), qRound(height() - height() / upwards));
    setMask(QRegion(QPolygon({{0, 0},
                              {0, height()},
                              {corner.x(), height()},
                              {width(), corner.y()},
                              {width(), 0},
                              {0, 0}}),
                    Qt::WindingFill));
}

void PostItWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    CreatePicRegion();
}

void PostItWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (isVisible() && !isAsKept())
        m_writing.typed();
}

void PostItWindow::showMenu(const QPoint& place) {
    auto* menu = new QMenu(this);
    menu->setObjectName(u"mnuMain"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(u"Save"_s, this, [this] { m_writing.save(); });
    menu->addAction(u"Delete"_s, this, &PostItWindow::deleteNote);
    if (m_session.GetWindows().has(ToolWindow::Settings))
        menu->addAction(u"Settings..."_s, this, [this] {
            m_session.GetWindows().open(ToolWindow::Settings, qint64{PostItSettingsPage});
        });
    menu->popup(place);
}

/// Whatever the answer, the note's window closes; who said no finds the note again.
void PostItWindow::deleteNote() {
    if (DeletePostIt(m_session, m_note.id))
        discard();
    else
        close();
}

bool PostItWindow::isAsKept() const {
    return !m_body->dataChanged() && y() == m_note.top / TwipsPerPixel &&
           x() == m_note.left / TwipsPerPixel && m_note.isShrunk == (height() == stripHeight);
}

PostIt PostItWindow::shown() const {
    const bool isKept = !m_body->dataChanged() && richtext::isRichText(m_note.memo);
    return {.id = m_note.id,
            .memo = isKept ? m_note.memo : m_body->rtf(),
            .top = y() * TwipsPerPixel,
            .left = x() * TwipsPerPixel,
            .isShrunk = height() == stripHeight};
}

bool PostItWindow::SavePositInfo() {
    if (m_isGone || !m_session.CurrentDB.isOpen())
        return true;
    const PostIt now = shown();
    try {
        if (!savePostIt(m_session.CurrentDB, now)) {
            if (m_body->dataChanged())
                m_body->setNotice(u"This note has been deleted. Its text is not saved."_s);
            return true;
        }
    } catch (const dao::EngineError& error) {
        if (m_failure.first())
            tellFailure(m_session.GetSeams().prompts, {u"Post-it Notes Error"}, error);
        return false;
    }
    m_failure.reset();
    m_note = now;
    m_body->setDataChanged(false);
    return true;
}

Leaving PostItWindow::leave() {
    if (!SavePositInfo())
        return Leaving::Failed;
    const bool isLost = !m_isGone && m_session.CurrentDB.isOpen() && m_body->dataChanged();
    return isLost && !keepAsNew() ? Leaving::Failed : Leaving::Done;
}

/// The row has gone, and with it all but what stands in the window.
bool PostItWindow::keepAsNew() {
    const BoxAnswer answer = m_session.GetSeams().prompts.msg_Box(
        u"This post-it note has been deleted, and holds text that is not saved.\n"
        "Do you want to keep the text as a new post-it note?"_s,
        YesNoButtons | QuestionIcon | FirstButtonDeclines, u"Post-it"_s);
    if (answer == AnswerNo) {
        m_isGone = true;
        return true;
    }
    return tryTelling(m_session.GetSeams().prompts, {u"Post-it Notes Error"}, [this] {
        m_note = addPostIt(m_session.CurrentDB, shown());
        m_body->setNotice({});
        m_body->setDataChanged(false);
    });
}

void PostItWindow::discard() {
    m_isGone = true;
    close();
}

void PostItWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(m_writing.mayGo());
}
