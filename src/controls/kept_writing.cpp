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
        m_writer.leave = m_writer.save;
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

bool KeptWriting::write(const std::function<bool()>& way) {
    m_due.reset();
    if (m_isGivenUp || m_hasEnded)
        return true;
    // The box that tells of a failure takes the focus, and would have the same written again.
    if (m_isWriting)
        return false;
    const QScopedValueRollback writing(m_isWriting, true);
    return way();
}

bool KeptWriting::save() {
    return write(m_writer.save);
}

bool KeptWriting::leave() {
    return write(m_writer.leave);
}

bool KeptWriting::mayGo() {
    if (leave())
        return true;
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
