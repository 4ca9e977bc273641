#pragma once

#include <QDate>
#include <QFlags>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <deque>
#include <variant>
#include <vector>

/// What leaves the program as a spreadsheet: a workbook is filled, sheet by sheet, and saved whole.
/// Rows and columns are counted from 0. Which of the formats it is saved in, and how that is
/// written, nobody who fills one needs to know.

/// What a cell holds: nothing, a number, a text or a date, which shows as "7-Sep-2026". A text is
/// never read as anything else: neither as a number nor, with an equals sign in front, as a
/// formula.
using CellContent = std::variant<std::monostate, double, QString, QDate>;

/// How a cell looks.
enum class CellLook : quint8 {
    Bold = 1,
    Underlined = 2,
    Filled = 4,   ///< in the colour of heads of tables
    Bordered = 8, ///< with thin lines on all sides
    Wrapped = 16, ///< in as many lines as it takes
    Dated = 32,   ///< as dates are shown; comes with a date
};
Q_DECLARE_FLAGS(CellLooks, CellLook)
Q_DECLARE_OPERATORS_FOR_FLAGS(CellLooks)

struct SheetCell {
    CellContent content;
    CellLooks looks;

    bool isBare() const { return content.index() == 0 && !looks; }
};

/// A range of cells.
struct CellArea {
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
};

/// A line at the head or foot of each printed page.
struct PageLine {
    QString text;
    int points = 0; ///< 0: the usual size
    bool underlined = false;

    /// The line as spreadsheets keep it, at a place of the page's width: 'L', 'C' or 'R'. Empty for
    /// no text.
    QString codes(QChar place) const;
};

struct PageSetup {
    PageLine header; ///< in the middle
    PageLine footer; ///< at the right
    bool landscape = false;
    bool centred = false;     ///< between left and right
    bool onePageWide = false; ///< made smaller where it is wider than a page
    bool letterPaper = false; ///< else A4
};

/// One sheet of a workbook.
class Sheet {
public:
    explicit Sheet(QString name);

    /// Puts something in a cell; a number without end as a text. Of a text longer than LongestText
    /// the rest is left out, and so are characters that no spreadsheet takes.
    void put(int row, int column, const CellContent& content);
    /// Adds to the looks of cells.
    void addLooks(const CellArea& area, CellLooks looks);
    /// Makes a column as wide as its widest text, up to WidestFit; longer ones are wrapped.
    void fitColumn(int column);
    /// In characters.
    void setColumnWidth(int column, double width) { m_widths[column] = width; }
    /// Lets the texts of a column take as many lines as they need.
    void wrapColumn(int column);
    /// Keeps the first columns in view while the others move below them.
    void freezeColumns(int count) { m_frozenColumns = count; }
    PageSetup& page() { return m_page; }

    const QString& name() const { return m_name; }
    int rowCount() const { return static_cast<int>(m_rows.size()); }
    int columnCount() const { return m_columnCount; }
    const SheetCell& cell(int row, int column) const; ///< a bare one beyond the end
    const QHash<int, double>& columnWidths() const { return m_widths; } ///< of those that were set
    /// How many lines a row needs for the texts in it that are wrapped: an estimate (text_width.h).
    int linesOfRow(int row) const;
    int frozenColumns() const { return m_frozenColumns; }
    const PageSetup& page() const { return m_page; }
    /// The cells whose text was cut, by their names ("B7").
    const QStringList& cutTexts() const { return m_cutTexts; }

    static constexpr int LongestText = 32767; ///< UTF-16 units, of a cell
    static constexpr double WidestFit = 60;

private:
    SheetCell& cellToSet(int row, int column);

    QString m_name;
    std::vector<std::vector<SheetCell>> m_rows;
    int m_columnCount = 0;
    QHash<int, double> m_widths;
    int m_frozenColumns = 0;
    PageSetup m_page;
    QStringList m_cutTexts;
};

class Workbook {
public:
    /// Names must differ. The sheet stays where it is as long as the workbook does.
    Sheet& addSheet(const QString& name);
    const std::deque<Sheet>& sheets() const { return m_sheets; }
    /// The cells of all sheets whose text was cut: "Sheet1: B7".
    QStringList cutTexts() const;

private:
    std::deque<Sheet> m_sheets;
};

/// Saves a workbook with at least one sheet: a name that ends in ".xlsx" makes it one of that
/// format, every other name a genuine .xls. The file is private; one that stands there is replaced
/// when the new one is complete. Raises 3190 for a sheet larger than the format holds, 3251 where
/// the library for it is not installed, and what dao::putFile raises.
void saveWorkbook(const Workbook& workbook, const QString& path);

/// Whether a name ends in ".xlsx", whatever the case.
bool isXlsxName(const QString& name);
