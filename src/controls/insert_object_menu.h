#pragma once

#include <QMenu>

class FocusedBox;
class Session;

/// The menu "Insert Object", which puts an equation, a file or a symbol at the caret of the box
/// that had the focus last.
class InsertObjectMenu : public QMenu {
    Q_OBJECT

public:
    InsertObjectMenu(Session& session, const FocusedBox& focused, QWidget* parent);

private:
    void insertEquation();
    void insertPackage();
    void insertSymbol();

    Session& m_session;
    const FocusedBox& m_focused;
};
