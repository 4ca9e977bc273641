#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

/// The records of which an .xls workbook consists (BIFF8): a number, a length and fields, all
/// little-endian.

enum class Biff : quint16 {
    Formula = 0x0006,
    Eof = 0x000A,
    Header = 0x0014,
    Footer = 0x0015,
    Selection = 0x001D,
    DateMode = 0x0022,
    Encryption = 0x002F,
    Font = 0x0031,
    Continue = 0x003C,
    Window1 = 0x003D,
    Pane = 0x0041,
    CodePage = 0x0042,
    DefaultColumnWidth = 0x0055,
    ColumnInfo = 0x007D,
    SheetBits = 0x0081,
    CentredHorizontally = 0x0083,
    BoundSheet = 0x0085,
    Setup = 0x00A1,
    ShortNumbers = 0x00BD,
    FormattedLabel = 0x00D6,
    ExtendedFormat = 0x00E0,
    SharedStrings = 0x00FC,
    SharedString = 0x00FD,
    Dimensions = 0x0200,
    Blank = 0x0201,
    Number = 0x0203,
    Label = 0x0204, ///< a text of its own
    Truth = 0x0205, ///< or an error
    FormulaText = 0x0207,
    Row = 0x0208,
    DefaultRowHeight = 0x0225,
    Window2 = 0x023E,
    ShortNumber = 0x027E,
    Style = 0x0293,
    Format = 0x041E,
    Beginning = 0x0809,
};

/// The fields of one record, put together one after the other.
class BiffFields {
public:
    BiffFields& byte(int value);
    BiffFields& word(int value); ///< two bytes
    BiffFields& longWord(quint32 value);
    BiffFields& real(double value);
    BiffFields& text(const QString& text);               ///< its length in two bytes before it
    BiffFields& shortText(const QString& text);          ///< its length in one byte
    BiffFields& characters(QStringView text, bool wide); ///< bare, of two bytes each or of one

    const QByteArray& bytes() const { return m_bytes; }

    static constexpr qsizetype Largest = 8224; ///< bytes, of a record

private:
    QByteArray m_bytes;
};

/// Whether the characters of a text take two bytes each; else they take one.
bool hasWideCharacters(QStringView text);

/// Adds a record to a stream. REQUIRES: no more than BiffFields::Largest bytes.
void addRecord(QByteArray& stream, Biff record, const BiffFields& fields = {});

/// The texts of a workbook, each kept once and known to the cells by its number.
class SharedTexts {
public:
    quint32 numberOf(const QString& text);
    /// The record of all texts, continued in others where it is longer than a record may be.
    void addTo(QByteArray& stream) const;

private:
    QHash<QString, quint32> m_numbers;
    QList<QString> m_texts;
    quint32 m_uses = 0;
};
