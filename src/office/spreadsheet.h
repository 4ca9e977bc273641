#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class Prompts;

/// The first sheet that shows of a spreadsheet file (.xls, .xlsx, .ods) or of a text file with a
/// table (.csv, .txt), as texts.
class Spreadsheet {
public:
    /// Reads a file, whatever its bytes, in a child process; none where it can't be read as a
    /// spreadsheet. What it is its bytes say, not its ending. Of a sheet beyond
    /// SheetCells::LargestRow rows or LargestColumn columns the rest is left out.
    static std::optional<Spreadsheet> read(const QString& path);
    /// Why a file can't be read, in a sentence for the person who chose it; empty where no more is
    /// known than that.
    static QString hindrance(const QString& path);

    int rowCount() const { return static_cast<int>(m_rows.size()); }
    int columnCount() const { return m_columnCount; }
    /// A cell as people write it, counted from 0: a number without what its format adds, of a
    /// formula the result, a date in the person's short form. Empty beyond the end, and for a place
    /// that is none.
    QString cell(int row, int column) const { return m_rows.value(row).value(column); }

private:
    static std::optional<Spreadsheet> unpack(const QByteArray& bytes);

    QList<QStringList> m_rows;
    int m_columnCount = 0;
};

/// The letters of a column, counted from 0: "A" to "Z", "AA", ...
QString columnLetters(int column);
/// The column of letters in any case; -1 for what is none.
int columnOfLetters(QStringView letters);

/// The box for a file that can't be opened, with what hinders it.
void showCantOpen(Prompts& prompts, const QString& file);
