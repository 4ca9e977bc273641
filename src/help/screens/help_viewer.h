#pragma once

#include "help/help.h"

#include <QObject>
#include <QPointer>

class HelpWindow;
class QWidget;
class Session;

/// The program's one help window. It is made when help is first asked for, and stays usable while a
/// dialog waits for the person: until that dialog has gone the window counts as part of it.
class HelpViewer : public QObject {
    Q_OBJECT

public:
    HelpViewer(Session& session, QWidget& mainWindow);

    /// Opens the session's help file, where that has not been done, and shows what the command is
    /// for; `control` belongs to HelpContext. A file that can't be used is told in a plain box.
    void showHelp(HelpCommand command, const QWidget* control = nullptr);
    /// Closes the window, if there is one, so that its place is kept.
    void close();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool makeWindow();
    void moveTo(QWidget& owner);

    Session& m_session;
    QWidget& m_mainWindow;
    QPointer<HelpWindow> m_window;
};

/// The object names of a control and of all that it stands in, the control first; those that Qt
/// gives by itself are left out.
QStringList controlPath(const QWidget* control);
