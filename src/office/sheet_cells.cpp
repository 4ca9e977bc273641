#include "office/sheet_cells.h"

#include "store/engine/value.h"

#include <QDataStream>
#include <QDateTime>
#include <QIODevice>

#include <cmath>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int MostCells = 4'000'000;

/// Days as workbooks count them. Those from 1900 take that year for a leap year.
QDate dayOfWorkbook(qint64 days, bool from1904) {
    constexpr qint64 leapDayOf1900 = 60;
    if (from1904)
        return QDate(1904, 1, 1).addDays(days);
    return QDate(1899, 12, days < leapDayOf1900 ? 31 : 30).addDays(days);
}

} // namespace

void SheetCells::setNumber(int row, int column, double number) {
    setText(row, column, dao::numberText(number));
}

void SheetCells::setTruth(int row, int column, bool truth) {
    setText(row, column, truth ? u"True"_s : u"False"_s);
}

void SheetCells::setMoment(int row, int column, CellKind kind, double days, bool from1904) {
    constexpr double mostDays = 2'958'466; // the end of the year 9999
    constexpr int secondsOfDay = 24 * 60 * 60;
    const bool isTimeOnly = kind == CellKind::Time && days < 1;
    if (!(days >= 0 && days < mostDays) || (kind == CellKind::Time && !isTimeOnly))
        return setNumber(row, column, days);
    const qint64 seconds = std::llround(days * secondsOfDay);
    const QDate date = dayOfWorkbook(seconds / secondsOfDay, from1904);
    const QTime time = QTime(0, 0).addSecs(static_cast<int>(seconds % secondsOfDay));
    if (kind == CellKind::Date)
        set(row, column, {kind, date.toString(Qt::ISODate)});
    else if (kind == CellKind::Time)
        set(row, column, {kind, time.toString(Qt::ISODate)});
    else
        set(row, column, {kind, date.toString(Qt::ISODate) + u'T' + time.toString(Qt::ISODate)});
}

void SheetCells::setIsoMoment(int row, int column, const QString& text) {
    constexpr qsizetype dateSize = 10;   // 2026-11-27
    constexpr qsizetype momentSize = 19; // 2026-11-27T08:30:00
    constexpr qsizetype timeSize = 8;    // 08:30:00
    if (!text.contains(u'-'))
        set(row, column, {CellKind::Time, text.left(timeSize)});
    else if (text.size() > dateSize)
        set(row, column, {CellKind::DateTime, text.left(momentSize)});
    else
        set(row, column, {CellKind::Date, text});
}

void SheetCells::set(int row, int column, const ReadCell& cell) {
    if (row < 0 || row >= LargestRow || column < 0 || column >= LargestColumn ||
        cell.text.isEmpty())
        return;
    const auto y = static_cast<size_t>(row);
    const auto x = static_cast<size_t>(column);
    if (m_rows.size() <= y)
        m_rows.resize(y + 1);
    if (m_rows[y].size() <= x) {
        m_count += static_cast<int>(x + 1 - m_rows[y].size());
        if (m_count > MostCells)
            throw std::length_error("There are too many cells.");
        m_rows[y].resize(x + 1);
    }
    m_rows[y][x] = cell;
}

void SheetCells::copyRow(int from, int to) {
    if (static_cast<size_t>(from) >= m_rows.size())
        return;
    const std::vector<ReadCell> cells = m_rows[static_cast<size_t>(from)];
    for (size_t column = 0; column < cells.size(); ++column)
        set(to, static_cast<int>(column), cells[column]);
}

QByteArray SheetCells::packed() const {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << static_cast<qint32>(m_rows.size());
    for (const auto& row : m_rows) {
        out << static_cast<qint32>(row.size());
        for (const ReadCell& cell : row)
            out << static_cast<quint8>(cell.kind) << cell.text;
    }
    return bytes;
}

std::optional<QList<QList<ReadCell>>> SheetCells::unpacked(const QByteArray& bytes) {
    QDataStream in(bytes);
    qint32 rowCount = 0;
    in >> rowCount;
    if (rowCount < 0 || rowCount > LargestRow)
        return std::nullopt;
    int count = 0;
    QList<QList<ReadCell>> rows;
    while (rows.size() < rowCount && in.status() == QDataStream::Ok) {
        qint32 size = 0;
        in >> size;
        if (size < 0 || size > LargestColumn || (count += size) > MostCells)
            return std::nullopt;
        QList<ReadCell> row(size);
        for (ReadCell& cell : row) {
            quint8 kind = 0;
            in >> kind >> cell.text;
            cell.kind =
                static_cast<CellKind>(std::min(kind, static_cast<quint8>(CellKind::DateTime)));
        }
        rows += row;
    }
    if (in.status() != QDataStream::Ok || !in.atEnd())
        return std::nullopt;
    return rows;
}
