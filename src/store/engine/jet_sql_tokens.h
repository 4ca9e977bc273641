#pragma once

#include <QList>
#include <QString>
#include <QStringView>

/// The words and signs of Jet SQL.
namespace dao::sql {

enum class TokenKind { Name, Keyword, Number, Text, Symbol, End };

struct Token {
    TokenKind kind = TokenKind::End;
    /// A name without its brackets, a keyword in capitals, a number as SQLite's language takes it,
    /// a text without its quotes, the characters of a symbol; empty at the end.
    QString text;
    qsizetype position = 0; ///< of the first character, from 0
};

/// A longer text of Jet SQL is refused: far beyond what a person or a selection of pupils needs,
/// and short enough that what it translates to stays within SQLite's limits.
constexpr qsizetype MaximumSqlLength = 32768;

/// Splits a text into tokens; the last one is of the kind End. Blanks, tabs and line breaks divide.
/// Raises 3075 for a bracket or quote left open, a number out of range or grown into a word, a text
/// that is too long, and every sign that Jet SQL does not have (comments among them).
QList<Token> tokenize(const QString& text);

/// Whether a name of a table or field can stand in Jet SQL without brackets: a letter or `_`, then
/// letters, digits and `_`, and no reserved word.
bool isBareName(QStringView name);

/// Raises 3075 for a text that goes wrong at this character. The sentence tells the place only:
/// with a quote missing, the words there may be what a pupil's record holds.
[[noreturn]] void raiseSyntaxError(qsizetype position);

} // namespace dao::sql
