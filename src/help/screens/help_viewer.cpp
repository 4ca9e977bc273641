#include "help/screens/help_viewer.h"

#include "core/prompts.h"
#include "core/session.h"
#include "help/help_file.h"
#include "help/screens/help_window.h"

#include <QApplication>
#include <QEvent>

using namespace Qt::StringLiterals;

HelpViewer::HelpViewer(Session& session, QWidget& mainWindow)
    : QObject(&mainWindow), m_session(session), m_mainWindow(mainWindow) {}

void HelpViewer::showHelp(HelpCommand command, const QWidget* control) {
    const QStringList path = controlPath(control);
    if (!m_window && !makeWindow())
        return;
    QWidget* dialog = QApplication::activeModalWidget();
    moveTo(dialog ? *dialog : m_mainWindow);
    m_window->showHelp(command, path);
    m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void HelpViewer::close() {
    if (m_window)
        m_window->close();
}

bool HelpViewer::makeWindow() {
    ReadHelp read = openHelpFile(m_session.helpFile());
    if (read.book) {
        m_window = new HelpWindow(std::move(*read.book), m_session.GetSettings(), &m_mainWindow);
        return true;
    }
    m_session.GetSeams().prompts.PlainBox(read.fault, OkButton | WarningIcon, u"ORVA Help"_s);
    return false;
}

/// A dialog that waits lets only its own windows take input.
void HelpViewer::moveTo(QWidget& owner) {
    if (m_window->parentWidget() == &owner)
        return;
    const QRect place = m_window->geometry();
    const bool isShown = m_window->isVisible();
    m_window->setParent(&owner, m_window->windowFlags());
    m_window->setGeometry(place);
    m_window->setVisible(isShown);
    if (&owner != &m_mainWindow)
        owner.installEventFilter(this);
}

/// A dialog hides before it goes.
bool HelpViewer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Hide || !watched->isWidgetType())
        return false;
    watched->removeEventFilter(this);
    if (m_window && m_window->parentWidget() == watched)
        moveTo(m_mainWindow);
    return false;
}

QStringList controlPath(const QWidget* control) {
    QStringList path;
    for (const QWidget* part = control; part; part = part->parentWidget()) {
        const QString name = part->objectName();
        if (!name.isEmpty() && !name.startsWith(u"qt_"))
            path += name;
    }
    return path;
}
