#include "richtext/rtf_scanner.h"

#include <algorithm>
#include <limits>

namespace richtext {

namespace {

bool isLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

/// A hexadecimal digit's value, -1 for another character.
int digitValue(char16_t c) {
    if (isDigit(c))
        return c - u'0';
    const char16_t lower = c | 0x20;
    return lower >= u'a' && lower <= u'f' ? lower - u'a' + 10 : -1;
}

} // namespace

/// Behind the backslash.
Token Scanner::control() {
    if (m_at == m_end)
        return Token::End;
    if (isLetter(*m_at))
        return controlWord();
    m_symbol = *m_at++;
    if (m_symbol != u'\'')
        return Token::Symbol;
    // A broken byte reads as nothing: what stands there is text again.
    m_byte = 0;
    if (m_end - m_at < 2 || digitValue(m_at[0]) < 0 || digitValue(m_at[1]) < 0)
        return Token::Symbol;
    m_byte = static_cast<uchar>(digitValue(m_at[0]) * 16 + digitValue(m_at[1]));
    m_at += 2;
    return Token::Byte;
}

Token Scanner::controlWord() {
    const char16_t* const begin = m_at;
    quint32 hash = noLetters;
    while (m_at != m_end && isLetter(*m_at))
        hash = hashLetter(hash, *m_at++);
    m_meaning = meaningOf({begin, m_at}, hash);
    readNumber();
    if (m_at != m_end && *m_at == u' ')
        ++m_at;
    m_binary = m_at;
    if (m_meaning.word == Word::Binary && m_number > 0)
        m_at += std::min<qsizetype>(m_number, m_end - m_at);
    return Token::Word;
}

/// The number behind a control word; one beyond 32 bits is cut to the largest.
void Scanner::readNumber() {
    const bool negative = m_end - m_at >= 2 && *m_at == u'-' && isDigit(m_at[1]);
    m_at += negative;
    m_hasNumber = m_at != m_end && isDigit(*m_at);
    qint64 number = 0;
    for (; m_at != m_end && isDigit(*m_at); ++m_at)
        number = std::min<qint64>(number * 10 + (*m_at - u'0'), std::numeric_limits<qint32>::max());
    m_number = static_cast<qint32>(negative ? -number : number);
}

} // namespace richtext
