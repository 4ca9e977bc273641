#pragma once

#include "help/help.h"

#include <QWidget>

class HelpContentsTree;
class HelpPageView;
class HelpSearchPane;
class LayoutToolbar;
class QFrame;
class QLabel;
class QLineEdit;
class QTabWidget;
class Settings;

/// The help window: contents, index and search beside the page. It stands beside the program and
/// keeps its place from one opening to the next.
///
/// Ctrl+F finds a text in the page, F3 and Shift+F3 go to the next and the previous place; Ctrl and
/// plus, minus or 0 set the size of the text. Escape ends the finding, or else closes the window.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    HelpWindow(HelpBook book, Settings& settings, QWidget* owner);

    /// Shows what a command is for. `controlPath`, as HelpBook::topicOf takes it, belongs to
    /// HelpContext; where nothing is said of the control the first page shows.
    void showHelp(HelpCommand command, const QStringList& controlPath = {});

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* makePanes();
    QWidget* makePageSide();
    QFrame* makeFindBar();
    void makeToolbar();
    void makeShortcuts();
    void focusPane();
    void pageShown(int page);
    void startFinding();
    void endFinding();
    void find(bool backwards);

    HelpBook m_book;
    Settings& m_settings;
    LayoutToolbar* m_toolbar;
    QTabWidget* m_tabs;
    HelpContentsTree* m_contents;
    HelpSearchPane* m_search;
    HelpPageView* m_view;
    QFrame* m_findBar;
    QLineEdit* m_findField;
    QLabel* m_findState;
};
