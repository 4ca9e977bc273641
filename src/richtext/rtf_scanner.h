#pragma once

#include "richtext/rtf_words.h"

#include <cstring>

namespace richtext {

enum class Token : quint8 {
    End,
    Open,
    Close,
    Word,   ///< Scanner::meaning(), number()
    Symbol, ///< a control symbol: symbol()
    Byte,   ///< \'hh, a vertical tab or a form feed: byte()
    Text,   ///< characters below 0x80: text()
    High,   ///< characters from 0x80 on: text()
};

/// Cuts rich text into its tokens, in one pass. Line breaks and most other control characters
/// between them are left out, the bytes behind \bin too. Refers to the text, which has to outlive
/// it.
class Scanner {
public:
    explicit Scanner(QStringView text)
        : m_begin(text.utf16()), m_at(m_begin), m_end(m_begin + text.size()), m_start(m_begin) {}

    Token next() {
        while (m_at != m_end) {
            m_start = m_at;
            const char16_t c = *m_at;
            if (c == u'\\') {
                ++m_at;
                return control();
            }
            if (c >= 0x80)
                return span<Token::High>();
            if (c == u'{') {
                ++m_at;
                return Token::Open;
            }
            if (c == u'}') {
                ++m_at;
                return Token::Close;
            }
            if (c >= u' ')
                return span<Token::Text>();
            ++m_at;
            if (c == u'\t') {
                m_textEnd = m_at;
                return Token::Text;
            }
            // Other programs write them for their line breaks.
            if (c == u'\v' || c == u'\f') {
                m_byte = static_cast<uchar>(c);
                return Token::Byte;
            }
        }
        m_start = m_at;
        return Token::End;
    }

    WordMeaning meaning() const { return m_meaning; }
    bool hasNumber() const { return m_hasNumber; }
    qint32 number() const { return m_number; }
    qint32 numberOr(qint32 usual) const { return m_hasNumber ? m_number : usual; }
    char16_t symbol() const { return m_symbol; }
    uchar byte() const { return m_byte; }
    QStringView text() const { return {m_start, m_textEnd}; }
    /// What a \bin carries, a character a byte.
    QStringView binary() const { return {m_binary, m_at}; }

    /// Where the last token begins, and where the next one will.
    qsizetype start() const { return m_start - m_begin; }
    qsizetype position() const { return m_at - m_begin; }

    QStringView textFrom(qsizetype from, qsizetype to) const {
        return {m_begin + from, m_begin + to};
    }

    /// Goes on to in front of the bracket that closes the group which the position is in. Answers
    /// whether there is one.
    bool skipGroup() {
        for (qsizetype depth = 0; m_at != m_end;) {
            m_at = plainEnd<false>(m_at);
            if (m_at == m_end)
                break;
            if (*m_at == u'}' && depth-- == 0)
                return true;
            depth += *m_at == u'{';
            if (*m_at++ == u'\\')
                control();
        }
        return false;
    }

private:
    Token control();
    Token controlWord();
    void readNumber();

    template<Token Kind>
    Token span() {
        if constexpr (Kind == Token::Text) {
            m_at = plainEnd<true>(m_at);
        } else {
            while (m_at != m_end && *m_at >= 0x80)
                ++m_at;
        }
        m_textEnd = m_at;
        return Kind;
    }

    /// The first character from `at` on that has a meaning of its own: a backslash or a bracket;
    /// for text also a control character or one from 0x80 on. Looks at four at a time.
    template<bool AlsoOutsideText>
    const char16_t* plainEnd(const char16_t* at) const {
        constexpr quint64 ones = 0x0001000100010001;
        constexpr quint64 tops = 0x8000800080008000;
        const auto has = [](quint64 four, char16_t c) {
            const quint64 x = four ^ (ones * c);
            return (x - ones) & ~x & tops;
        };
        for (; m_end - at >= 4; at += 4) {
            quint64 four;
            std::memcpy(&four, at, sizeof four);
            quint64 found = has(four, u'\\') | has(four, u'{') | has(four, u'}');
            if constexpr (AlsoOutsideText)
                found |= (four & (ones * 0xFF80)) | ((four - ones * 0x20) & tops);
            if (found)
                break;
        }
        while (at != m_end && *at != u'\\' && *at != u'{' && *at != u'}' &&
               (!AlsoOutsideText || (*at >= u' ' && *at < 0x80)))
            ++at;
        return at;
    }

    const char16_t* m_begin;
    const char16_t* m_at;
    const char16_t* m_end;
    const char16_t* m_start;
    const char16_t* m_textEnd = nullptr;
    const char16_t* m_binary = nullptr;
    WordMeaning m_meaning;
    qint32 m_number = 0;
    bool m_hasNumber = false;
    char16_t m_symbol = 0;
    uchar m_byte = 0;
};

} // namespace richtext
