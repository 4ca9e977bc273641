#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>

/// Tables as text files have them: a line a record, its values separated by commas, semicolons or
/// tabs.

class SheetCells;

/// The text of such a file: UTF-8, with or without its mark, or UTF-16 with its mark; else
/// Windows-1252. Lines end with "\n" or "\r\n", also where they ended with "\r".
QString decodedText(QByteArrayView file);

/// The records of such a text, one after the other. A record ends with its line, but goes on while
/// a quote is open; outer quotes go, doubled ones become one.
class DelimitedRecords {
public:
    /// REQUIRES: the text lives as long.
    DelimitedRecords(QStringView text, QChar separator) : m_text(text), m_separator(separator) {}

    /// The next record's values, none of an empty line; nothing at the end. The record goes on over
    /// line ends, each of which becomes a blank, until it has as many separators.
    std::optional<QStringList> next(qsizetype separators = 0);

private:
    QStringView plainText() const;
    void takeQuote(QString& value, bool& isQuoted);

    QStringView m_text;
    QChar m_separator;
    qsizetype m_place = 0;
};

/// Which of tab, semicolon and comma separates the values: the one in most of the lines at the
/// start, outside quotes.
QChar separatorOf(QStringView text);

/// Whether a text is the source of a web page or the like, which is no such table.
bool isMarkup(QStringView text);

/// Reads a table of whatever separator. Answers false for bytes that are no text, for none, and for
/// markup.
bool readDelimitedText(QByteArrayView file, SheetCells& cells);
