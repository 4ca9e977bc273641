#pragma once

#include <QObject>

class RichTextBox;

/// The rich text box of a window that commands act on: the one that had the focus last.
class FocusedBox : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Takes a box among those of the window. It may go at any time.
    void add(RichTextBox& box);
    /// None until one had the focus, or when it is gone.
    RichTextBox* box() const { return m_box; }
    /// The box, where it can be changed.
    RichTextBox* writableBox() const;

signals:
    /// Another box is the one now, or the look of its selection has changed.
    void changed();
    /// The box has come to be the one.
    void entered(RichTextBox* box);

private:
    void enter(RichTextBox& box);

    RichTextBox* m_box = nullptr; ///< cleared when the box goes
};
