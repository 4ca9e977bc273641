#pragma once

#include <QString>
#include <QStringList>

class Prompts;
class Settings;

/// The marks of a register: which characters a teacher may type into it, and what a key does.

/// A pupil who was away: the letter O. Every other mark counts as attended, and so does none.
inline const QString AbsentMark = QStringLiteral("O");
inline const QString PresentMark = QStringLiteral("/");

/// The permitted marks, and the lines that the panel shows for those of the teacher's own.
struct KeyArray {
    QStringList marks; ///< "/", "\" and "O", then the teacher's own
    QStringList lines; ///< "L=late": a mark, "=" and what it means
};

/// Reads the teacher's own marks from the settings, in their order. A failure is told; the marks
/// that could be read stand.
KeyArray readRegisterKeys(const Settings& settings, Prompts& prompts);

/// The fixed lines of the panel. The second is written with a zero, the mark itself is the letter.
QStringList fixedKeyLines();
/// A line for each of `marks`, in their order, to choose one from.
QStringList markLines(const KeyArray& keys);

/// What a key typed into the register does.
enum class KeyEffect {
    Pass,    ///< the editor gets it: Escape and backspace
    Discard, ///< nothing is typed
    Mark     ///< it marks
};
/// `key` is what the key types. For a mark, `mark` is set to the capital. The zero, as the panel
/// writes it, marks as the letter O does, unless it is a mark of the teacher's own.
KeyEffect registerKey(const KeyArray& keys, const QString& key, QString& mark);
