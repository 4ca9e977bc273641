#pragma once

#include <QMenu>

class FocusedBox;
class RichTextBox;
class Session;

namespace richtext {
struct EmbeddedObject;
}

/// The menu "Insert Object", which puts an equation, a file or a symbol at the caret of the box
/// that had the focus last, and opens what was put there.
class InsertObjectMenu : public QMenu {
    Q_OBJECT

public:
    InsertObjectMenu(Session& session, const FocusedBox& focused, QWidget* parent);

    /// Shows what the object at the box's caret holds: an equation in its editor, a packaged file
    /// in the program that the desktop has for it.
    void openObject(RichTextBox& box);

private:
    void insertEquation();
    void insertPackage();
    void insertSymbol();
    void editEquation(RichTextBox& box, const richtext::EmbeddedObject& object);
    void openPackage(const richtext::EmbeddedObject& object);
    void tell(const QString& text);

    Session& m_session;
    const FocusedBox& m_focused;
};
