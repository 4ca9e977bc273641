#pragma once

#include "richtext/speller.h"

#include <QObject>
#include <QTimer>

class QRect;
class QTextBlock;
class QTextCursor;
class QTextEdit;

/// Underlines the spelling mistakes of a box. They are painted over it and no part of its document.
/// Words are looked up when the person pauses, and only in the paragraphs that can be seen.
class SpellingMarks : public QObject {
    Q_OBJECT

public:
    explicit SpellingMarks(QTextEdit& box);

    void setSpeller(richtext::Speller& speller);

    /// Paints the marks within a rectangle of the viewport, over the text.
    void paint(const QRect& rect);
    /// Looks the words in sight up at once.
    void check();

    /// The underlined word at the cursor's position, selected; without a selection where there is
    /// none.
    QTextCursor mistakeAt(const QTextCursor& cursor) const;
    QStringList suggestions(const QString& word) const;
    /// Takes the word as right in every box.
    void accept(const QString& word);

private:
    template<typename Visit>
    void eachVisibleBlock(const QRect& rect, Visit visit) const;
    void contentsChange(int position, int removed, int added);
    bool checkBlock(QTextBlock block);

    QTextEdit& m_box;
    richtext::Speller* m_speller;
    QTimer m_pause;
};
