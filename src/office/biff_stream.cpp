#include "office/biff_stream.h"

#include <QtEndian>

#include <algorithm>
#include <bit>

namespace {

template<typename Number>
void appendNumber(QByteArray& bytes, Number number) {
    const Number little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char*>(&little), sizeof little);
}

/// Fills record after record with the texts.
class TextBlocks {
public:
    explicit TextBlocks(QByteArray& stream) : m_stream(stream) {}

    BiffFields& fields() { return m_fields; }

    /// The length before a text stays in one record with its first character. Within the text every
    /// further record says anew how wide the characters are.
    void add(const QString& text) {
        const bool isWide = hasWideCharacters(text);
        constexpr qsizetype lengthBytes = 3;
        if (room() < lengthBytes + 2)
            nextRecord();
        m_fields.word(static_cast<int>(text.size())).byte(isWide);
        for (QStringView rest = text; !rest.isEmpty();) {
            const qsizetype part = std::min(room() / (isWide ? 2 : 1), rest.size());
            m_fields.characters(rest.first(part), isWide);
            rest = rest.sliced(part);
            if (!rest.isEmpty()) {
                nextRecord();
                m_fields.byte(isWide);
            }
        }
    }
    void nextRecord() {
        addRecord(m_stream, m_record, m_fields);
        m_record = Biff::Continue;
        m_fields = {};
    }

private:
    qsizetype room() const { return BiffFields::Largest - m_fields.bytes().size(); }

    QByteArray& m_stream;
    Biff m_record = Biff::SharedStrings;
    BiffFields m_fields;
};

} // namespace

BiffFields& BiffFields::byte(int value) {
    m_bytes.append(static_cast<char>(value));
    return *this;
}

BiffFields& BiffFields::word(int value) {
    appendNumber(m_bytes, static_cast<quint16>(value));
    return *this;
}

BiffFields& BiffFields::longWord(quint32 value) {
    appendNumber(m_bytes, value);
    return *this;
}

BiffFields& BiffFields::real(double value) {
    appendNumber(m_bytes, std::bit_cast<quint64>(value));
    return *this;
}

BiffFields& BiffFields::text(const QString& text) {
    const bool isWide = hasWideCharacters(text);
    return word(static_cast<int>(text.size())).byte(isWide).characters(text, isWide);
}

BiffFields& BiffFields::shortText(const QString& text) {
    const bool isWide = hasWideCharacters(text);
    return byte(static_cast<int>(text.size())).byte(isWide).characters(text, isWide);
}

BiffFields& BiffFields::characters(QStringView text, bool wide) {
    for (const QChar character : text) {
        if (wide)
            word(character.unicode());
        else
            byte(character.unicode());
    }
    return *this;
}

bool hasWideCharacters(QStringView text) {
    constexpr char16_t lastNarrow = 0xFF;
    return std::any_of(text.begin(), text.end(),
                       [](QChar character) { return character.unicode() > lastNarrow; });
}

void addRecord(QByteArray& stream, Biff record, const BiffFields& fields) {
    appendNumber(stream, static_cast<quint16>(record));
    appendNumber(stream, static_cast<quint16>(fields.bytes().size()));
    stream.append(fields.bytes());
}

quint32 SharedTexts::numberOf(const QString& text) {
    ++m_uses;
    const auto found = m_numbers.constFind(text);
    if (found != m_numbers.constEnd())
        return *found;
    const auto number = static_cast<quint32>(m_texts.size());
    m_numbers.insert(text, number);
    m_texts += text;
    return number;
}

void SharedTexts::addTo(QByteArray& stream) const {
    TextBlocks blocks(stream);
    blocks.fields().longWord(m_uses).longWord(static_cast<quint32>(m_texts.size()));
    for (const QString& text : m_texts)
        blocks.add(text);
    blocks.nextRecord();
}
