#include "store/engine/jet_sql_tokens.h"

#include "store/engine/error.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace dao::sql {
namespace {

/// The words with a meaning of their own. All others, Top, Left, Date and Memo among them, are
/// names.
constexpr std::array Keywords{
    u"SELECT", u"FROM", u"WHERE", u"ORDER", u"BY",   u"AS",   u"INNER", u"JOIN",
    u"ON",     u"AND",  u"OR",    u"NOT",   u"XOR",  u"EQV",  u"IMP",   u"LIKE",
    u"IS",     u"NULL", u"IN",    u"ASC",   u"DESC", u"TRUE", u"FALSE", u"BETWEEN",
};

/// Longer signs stand before those they begin with.
constexpr std::array Symbols{u"<>", u"<=", u">=", u"=", u"<", u">", u"+", u"-", u"*",
                             u"/",  u"&",  u"(",  u")", u",", u".", u"!", u";"};

/// The keyword a word is, in capitals; null where it is none.
QStringView keyword(QStringView word) {
    const auto found = std::find_if(Keywords.begin(), Keywords.end(), [&](const char16_t* known) {
        return word.compare(QStringView(known), Qt::CaseInsensitive) == 0;
    });
    return found == Keywords.end() ? QStringView() : QStringView(*found);
}

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

/// The length of the letter or `_` (or digit, where `inside` a word) at a place: 0 where there is
/// none, 2 for a letter beyond the first 65,536 characters.
qsizetype wordCharacterAt(QStringView text, qsizetype place, bool inside) {
    if (place >= text.size())
        return 0;
    const QChar first = text[place];
    char32_t character = first.unicode();
    qsizetype length = 1;
    if (first.isHighSurrogate() && place + 1 < text.size() && text[place + 1].isLowSurrogate()) {
        character = QChar::surrogateToUcs4(first, text[place + 1]);
        length = 2;
    }
    const bool fits =
        character == U'_' || QChar::isLetter(character) || (inside && QChar::isDigit(character));
    return fits ? length : 0;
}

/// The length of the word at a place, 0 where none begins.
qsizetype wordLength(QStringView text, qsizetype place) {
    qsizetype end = place;
    while (const qsizetype length = wordCharacterAt(text, end, end > place))
        end += length;
    return end - place;
}

class Tokenizer {
public:
    explicit Tokenizer(const QString& text) : m_text(text) {}

    QList<Token> tokens() {
        if (m_text.size() > MaximumSqlLength)
            raiseSyntaxError(MaximumSqlLength);
        for (skipBlanks(); m_place < m_text.size(); skipBlanks())
            m_tokens.append(next());
        m_tokens.append({TokenKind::End, QString(), m_text.size()});
        return m_tokens;
    }

private:
    QChar at(qsizetype place) const { return place < m_text.size() ? m_text[place] : QChar(); }

    void skipBlanks() {
        while (m_place < m_text.size() && QStringView(u" \t\r\n").contains(m_text[m_place]))
            ++m_place;
    }

    Token next() {
        const QChar first = at(m_place);
        if (first == u'[')
            return enclosed(TokenKind::Name, u']');
        if (first == u'\'' || first == u'"')
            return enclosed(TokenKind::Text, first);
        if (isDigit(first) || (first == u'.' && isDigit(at(m_place + 1)) && !isAfterName()))
            return number();
        if (const qsizetype length = wordLength(m_text, m_place))
            return word(length);
        return symbol();
    }

    /// Whether a name ends right here, so that a dot divides it from the field's name.
    bool isAfterName() const {
        return m_place > 0 && !m_tokens.isEmpty() && m_tokens.last().kind == TokenKind::Name &&
               (at(m_place - 1) == u']' || at(m_place - 1).isLetterOrNumber() ||
                at(m_place - 1) == u'_');
    }

    /// What stands between brackets or quotes. The closing sign doubled is one of the content.
    Token enclosed(TokenKind kind, QChar closing) {
        const qsizetype start = m_place++;
        QString content;
        for (; at(m_place) != closing || at(m_place + 1) == closing; ++m_place) {
            if (m_place >= m_text.size() || at(m_place).isNull())
                raiseSyntaxError(start);
            content += at(m_place);
            if (at(m_place) == closing)
                ++m_place;
        }
        ++m_place;
        if (kind == TokenKind::Name && content.isEmpty())
            raiseSyntaxError(start);
        return {kind, content, start};
    }

    Token number() {
        const qsizetype start = m_place;
        const auto skipDigits = [this] {
            while (isDigit(at(m_place)))
                ++m_place;
        };
        bool isWhole = true;
        skipDigits();
        if (at(m_place) == u'.') {
            isWhole = false;
            ++m_place;
            skipDigits();
        }
        if (at(m_place).toUpper() == u'E') {
            isWhole = false;
            ++m_place;
            if (at(m_place) == u'+' || at(m_place) == u'-')
                ++m_place;
            if (!isDigit(at(m_place)))
                raiseSyntaxError(start);
            skipDigits();
        }
        if (wordCharacterAt(m_text, m_place, true) > 0 || at(m_place) == u'.')
            raiseSyntaxError(start);
        return {TokenKind::Number, normalized(m_text.mid(start, m_place - start), isWhole, start),
                start};
    }

    /// A number as SQLite reads it: digits for a whole one of 64 bits, else with a point or an
    /// exponent.
    static QString normalized(const QString& number, bool isWhole, qsizetype start) {
        bool fits = false;
        if (isWhole) {
            const qint64 whole = number.toLongLong(&fits);
            if (fits)
                return QString::number(whole);
        }
        const double real = number.toDouble(&fits);
        if (!fits || !std::isfinite(real))
            raiseSyntaxError(start);
        QString text = QString::number(real, 'g', QLocale::FloatingPointShortest);
        if (!text.contains(u'.') && !text.contains(u'e'))
            text += QLatin1String(".0");
        return text;
    }

    Token word(qsizetype length) {
        const qsizetype start = m_place;
        m_place += length;
        const QString word = m_text.mid(start, length);
        const QStringView known = keyword(word);
        return known.isNull() ? Token{TokenKind::Name, word, start}
                              : Token{TokenKind::Keyword, known.toString(), start};
    }

    Token symbol() {
        const qsizetype start = m_place;
        const QStringView rest = QStringView(m_text).sliced(start);
        const auto found = std::find_if(Symbols.begin(), Symbols.end(), [&](const char16_t* sign) {
            return rest.startsWith(QStringView(sign));
        });
        // Two minus signs begin a comment in other dialects; here nobody means them.
        if (found == Symbols.end() || rest.startsWith(u"--"))
            raiseSyntaxError(start);
        const QStringView sign(*found);
        m_place += sign.size();
        return {TokenKind::Symbol, sign.toString(), start};
    }

    const QString& m_text;
    qsizetype m_place = 0;
    QList<Token> m_tokens;
};

} // namespace

QList<Token> tokenize(const QString& text) {
    return Tokenizer(text).tokens();
}

bool isBareName(QStringView name) {
    return !name.isEmpty() && wordLength(name, 0) == name.size() && keyword(name).isNull();
}

void raiseSyntaxError(qsizetype position) {
    throw EngineError(SyntaxError,
                      u"Syntax error in query expression at character %1."_s.arg(position + 1));
}

} // namespace dao::sql
