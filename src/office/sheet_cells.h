#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <vector>

/// What a cell of a sheet is read as.
enum class CellKind : quint8 { Text, Date, Time, DateTime };

/// A cell: its text, and of a date or time that in ISO's form (2026-11-27, 08:30:00, with a T
/// between both), since how it reads is the person's to say.
struct ReadCell {
    CellKind kind = CellKind::Text;
    QString text;
};

/// The cells of a sheet as a reader comes upon them, in any order. Rows and columns count from 0;
/// what lies beyond the largest is left out. They go as bytes from the child process that reads
/// them to the program.
class SheetCells {
public:
    static constexpr int LargestRow = 65536;
    static constexpr int LargestColumn = 16384;

    void setText(int row, int column, const QString& text) { set(row, column, {{}, text}); }
    void setNumber(int row, int column, double number);
    void setTruth(int row, int column, bool truth);
    /// A number of days since the start of 1900, or of 1904, as workbooks write dates and times.
    /// One that is no such is a number.
    void setMoment(int row, int column, CellKind kind, double days, bool from1904);
    /// A date or time in ISO's form, with whatever stands behind its seconds.
    void setIsoMoment(int row, int column, const QString& text);
    /// Raises std::length_error where there are more cells than any class list has.
    void set(int row, int column, const ReadCell& cell);
    /// Gives a row the cells of another one.
    void copyRow(int from, int to);

    QByteArray packed() const;
    /// None for bytes that are no packed cells.
    static std::optional<QList<QList<ReadCell>>> unpacked(const QByteArray& bytes);

private:
    std::vector<std::vector<ReadCell>> m_rows;
    int m_count = 0; ///< of cells, the empty ones between others too
};
