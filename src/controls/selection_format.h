#pragma once

#include <QColor>
#include <QString>
#include <QTextCharFormat>

#include <functional>
#include <optional>

class QTextCursor;

/// Where characters stand: on the line, or smaller above or below it.
enum class CharOffset { None, Superscript, Subscript };

/// How a selection looks. What is not the same all over it is absent.
struct SelectionFormat {
    std::optional<QString> fontName;
    std::optional<double> fontSize; ///< points
    std::optional<bool> bold;
    std::optional<bool> italic;
    std::optional<bool> underline;
    std::optional<QColor> colour; ///< an invalid one is automatic: what reads on the paper
    std::optional<CharOffset> offset;
    std::optional<bool> bullet;

    bool operator==(const SelectionFormat&) const = default;
};

/// The look of what is selected; where nothing is, that of `typing`, the format that the next
/// character gets. `font` is what text has that does not say.
SelectionFormat readFormat(const QTextCursor& selection, const QTextCharFormat& typing,
                           const QFont& font);

/// Changes the format of every character of the selection, as one undo step.
void changeFormat(QTextCursor selection, const std::function<void(QTextCharFormat&)>& change);

/// Makes the paragraphs that the selection touches items of a bullet list, or ordinary ones.
void changeBullets(QTextCursor selection, bool on);
