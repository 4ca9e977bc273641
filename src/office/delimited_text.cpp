#include "office/delimited_text.h"

#include "office/sheet_cells.h"
#include "richtext/code_pages.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace {

/// Whether a character may stand in a text: not what tells machines something.
bool isOfText(QChar sign) {
    constexpr std::u16string_view controls = u"\t\n\v\f\r\x1A"; // the last one ends files of old
    return sign >= u' ' || controls.find(sign.unicode()) != std::u16string_view::npos;
}

} // namespace

QString decodedText(QByteArrayView file) {
    const auto marked = QStringConverter::encodingForData(file);
    QStringDecoder decoder(marked.value_or(QStringConverter::Utf8)); // takes the mark away
    QString text = decoder.decode(file);
    if (decoder.hasError())
        text = richtext::decode(richtext::westernCodePage, file);
    return text.contains(u'\n') ? text : text.replace(u'\r', u'\n');
}

std::optional<QStringList> DelimitedRecords::next(qsizetype separators) {
    if (m_place >= m_text.size())
        return std::nullopt;
    QStringList values;
    values.reserve(separators + 1);
    QString value;
    bool isQuoted = false;
    bool hasText = false;
    for (; m_place < m_text.size(); ++m_place) {
        const QStringView plain = plainText();
        if (!plain.isEmpty()) {
            if (value.isEmpty())
                value = plain.toString();
            else
                value += plain;
            hasText = hasText || !plain.trimmed().isEmpty();
            m_place += plain.size() - 1;
            continue;
        }
        const QChar sign = m_text.at(m_place);
        hasText = hasText || !sign.isSpace();
        if (sign == u'"')
            takeQuote(value, isQuoted);
        else if (sign == m_separator && !isQuoted)
            values += std::exchange(value, QString());
        else if (sign == u'\n' && !isQuoted) {
            const bool isWhole = values.size() >= separators || !hasText;
            if (isWhole)
                break;
            value += u' ';
        } else if (sign != u'\r')
            value += sign;
    }
    ++m_place;
    values += value;
    return hasText ? values : QStringList();
}

/// What stands before the next sign that means something.
QStringView DelimitedRecords::plainText() const {
    const auto isPlain = [separator = m_separator](QChar sign) {
        const bool isAbove = sign > u';'; // as nearly all are
        return isAbove || (sign != separator && sign != u'"' && sign != u'\n' && sign != u'\r');
    };
    const QStringView rest = m_text.sliced(m_place);
    return rest.first(std::find_if_not(rest.begin(), rest.end(), isPlain) - rest.begin());
}

void DelimitedRecords::takeQuote(QString& value, bool& isQuoted) {
    const bool isDoubled =
        isQuoted && m_place + 1 < m_text.size() && m_text.at(m_place + 1) == u'"';
    if (isDoubled) {
        value += u'"';
        ++m_place;
    } else {
        isQuoted = !isQuoted;
    }
}

QChar separatorOf(QStringView text) {
    constexpr int linesLookedAt = 50;
    constexpr std::array separators{u'\t', u';', u','};
    std::array<int, separators.size()> lines{};
    std::array<bool, separators.size()> isInLine{};
    bool isQuoted = false;
    int line = 0;
    for (qsizetype place = 0; place < text.size() && line < linesLookedAt; ++place) {
        const QChar sign = text[place];
        if (sign == u'"')
            isQuoted = !isQuoted;
        for (size_t i = 0; i < separators.size(); ++i) {
            if (sign == separators[i] && !isQuoted && !std::exchange(isInLine[i], true))
                ++lines[i];
        }
        if (sign == u'\n' && !isQuoted) {
            isInLine = {};
            ++line;
        }
    }
    return separators[static_cast<size_t>(std::max_element(lines.begin(), lines.end()) -
                                          lines.begin())];
}

bool isMarkup(QStringView text) {
    return text.trimmed().startsWith(u'<');
}

bool readDelimitedText(QByteArrayView file, SheetCells& cells) {
    const QString text = decodedText(file);
    if (text.isEmpty() || !std::all_of(text.begin(), text.end(), isOfText) || isMarkup(text))
        return false;
    DelimitedRecords records(text, separatorOf(text));
    for (int row = 0; row < SheetCells::LargestRow; ++row) {
        const std::optional<QStringList> values = records.next();
        if (!values)
            break;
        for (int column = 0; column < values->size(); ++column)
            cells.setText(row, column, values->at(column));
    }
    return true;
}
