#include "controls/kept_writing.h"

#include "core/prompts.h"
#include "core/seams.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QWidget>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The tool window or dialog that a control stands in.
const QWidget* enclosingWindow(const QWidget* control) {
    while (!control->isWindow() && control->windowType() != Qt::SubWindow)
        control = control->parentWidget();
    return control;
}

} // namespace

KeptWriting::KeptWriting(QWidget& window, const Seams& seams, Writer writer)
    : BeforeGoing(&window)
    , m_window(window)
    , m_clock(seams.clock)
    , m_prompts(seams.prompts)
    , m_writer(std::move(writer)) {
    if (!m_writer.leave)
        m_writer.leave = [this] { return saved(); };
    connect(qApp, &QApplication::focusChanged, this, &KeptWriting::followFocus);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &KeptWriting::save);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &KeptWriting::save);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &KeptWriting::save);
}

void KeptWriting::followFocus(QWidget* from, QWidget* to) {
    const QWidget* here = enclosingWindow(&m_window);
    const auto isHere = [here](const QWidget* widget) {
        return widget && enclosingWindow(widget) == here;
    };
    if (isHere(from) && !isHere(to))
        save();
    else if (isHere(to) && !isHere(from))
        emit cameBack();
}

void KeptWriting::typed() {
    m_isGivenUp = false;
    if (!m_due && !m_hasEnded)
        m_due = m_clock.after(SaveDelay, [this] { save(); });
}

Leaving KeptWriting::saved() {
    return m_writer.save() ? Leaving::Done : Leaving::Failed;
}

Leaving KeptWriting::write(const std::function<Leaving()>& way) {
    m_due.reset();
    if (m_isGivenUp || m_hasEnded)
        return Leaving::Done;
    // The box that tells of a failure takes the focus, and would have the same written again.
    if (m_isWriting)
        return Leaving::Failed;
    const QScopedValueRollback writing(m_isWriting, true);
    return way();
}

bool KeptWriting::save() {
    return write([this] { return saved(); }) == Leaving::Done;
}

bool KeptWriting::leave() {
    return write(m_writer.leave) == Leaving::Done;
}

bool KeptWriting::mayGo() {
    const Leaving left = write(m_writer.leave);
    if (left != Leaving::Failed)
        return left == Leaving::Done;
    const auto answer = m_prompts.msg_Box(
        m_writer.what + u" could not be saved.\n\nDo you wish to close it all the same, and lose "
                        "what was typed since it was saved last?"_s,
        YesNoButtons | WarningIcon | SecondButtonDefault, u"Not saved"_s);
    m_isGivenUp = answer == AnswerYes;
    return m_isGivenUp;
}

void KeptWriting::end() {
    save();
    m_hasEnded = true;
}
