#pragma once

#include <QList>
#include <QString>

#include <optional>

class Prompts;

/// The first sheet of a spreadsheet file (.xls), as texts.
class Spreadsheet {
public:
    /// Reads a file, whatever its bytes; none where it can't be read as a spreadsheet. Of a sheet
    /// beyond LargestRow rows or LargestColumn columns the rest is left out.
    static std::optional<Spreadsheet> read(const QString& path);

    int rowCount() const { return static_cast<int>(m_rows.size()); }
    int columnCount() const { return m_columnCount; }
    /// A cell as it reads in the sheet, counted from 0; empty beyond the end.
    QString cell(int row, int column) const { return m_rows.value(row).value(column); }

    static constexpr int LargestRow = 20000;
    static constexpr int LargestColumn = 256;

private:
    static std::optional<Spreadsheet> unpack(const QByteArray& bytes);

    QList<QStringList> m_rows;
    int m_columnCount = 0;
};

/// The letters of a column, counted from 0: "A" to "Z", "AA", ...
QString columnLetters(int column);
/// The column of letters in any case; -1 for what is none.
int columnOfLetters(QStringView letters);

/// The box for a file that can't be opened.
void showCantOpen(Prompts& prompts, const QString& file);
