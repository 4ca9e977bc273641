#include "controls/restricted_edit.h"

#include <QApplication>

#include <algorithm>

RestrictedEdit::RestrictedEdit(const QString& name, Accepts accepts, Letters letters,
                               QWidget* parent)
    : QLineEdit(parent), m_accepts(accepts), m_letters(letters) {
    setAccessibleName(name);
    // Not a validator: the text can come by keys, by pasting or from an input method, and is kept
    // as far as it is accepted.
    connect(this, &QLineEdit::textEdited, this, &RestrictedEdit::restrict);
    connect(this, &QLineEdit::inputRejected, this, &QApplication::beep);
}

QString RestrictedEdit::acceptedPart(const QString& text) const {
    QString part;
    for (const char32_t character : text.toUcs4()) {
        if (m_accepts(character))
            part += QString::fromUcs4(&character, 1);
    }
    return m_letters == Letters::Capitals ? part.toUpper() : part;
}

void RestrictedEdit::restrict(const QString& typed) {
    const QString kept = acceptedPart(typed);
    if (kept != typed) {
        const auto cursor = acceptedPart(typed.left(cursorPosition())).size();
        setText(kept);
        setCursorPosition(static_cast<int>(cursor));
    }
    const QList<uint> characters = typed.toUcs4();
    if (!std::all_of(characters.begin(), characters.end(), m_accepts))
        emit refused();
}
