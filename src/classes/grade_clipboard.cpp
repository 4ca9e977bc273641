#include "classes/grade_clipboard.h"

#include "classes/grade_columns.h"
#include "core/prompts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString LineEnd = u"\r\n"_s;
constexpr QChar Quote = u'"';

QString quoted(const QString& cell) {
    const bool isPlain = !cell.startsWith(Quote) && !cell.contains(u'\t') &&
                         !cell.contains(u'\n') && !cell.contains(u'\r');
    return isPlain ? cell : Quote + QString(cell).replace(Quote, u"\"\""_s) + Quote;
}

/// Where the quoted cell that begins at `start` ends, behind its closing quote; -1 without one.
qsizetype endOfQuoted(const QString& text, qsizetype start) {
    for (qsizetype place = start + 1; place < text.size(); ++place) {
        if (text[place] != Quote)
            continue;
        if (place + 1 == text.size() || text[place + 1] != Quote)
            return place + 1;
        ++place; // two stand for one
    }
    return -1;
}

/// Reads the cell at `place`, which then stands at the tab or line end behind it.
QString readCell(const QString& text, qsizetype& place) {
    QString cell;
    if (place < text.size() && text[place] == Quote) {
        if (const qsizetype end = endOfQuoted(text, place); end >= 0) {
            cell = text.sliced(place + 1, end - place - 2).replace(u"\"\""_s, Quote);
            place = end;
        }
    }
    const qsizetype rest = place;
    while (place < text.size() && text[place] != u'\t' && text[place] != u'\n')
        ++place;
    return cell + text.sliced(rest, place - rest);
}

bool tellTooLarge(Prompts& prompts, qsizetype size, qsizetype room, const QString& text) {
    if (size <= room)
        return false;
    prompts.PlainBox(text.arg(size).arg(room) + u"\nNothing has been pasted."_s,
                     OkButton | WarningIcon, u"Paste"_s);
    return true;
}

} // namespace

QString studentNames(const PupilSheet& sheet) {
    QString text;
    for (int row = 0; row < sheet.rowCount(); ++row)
        text += sheet.text(row, PupilSheet::FirstnameColumn) + u' ' +
                sheet.text(row, PupilSheet::SurnameColumn) + LineEnd;
    return text;
}

void showDataCopied(Prompts& prompts) {
    prompts.PlainBox(
        u"This data has been copied to the clipboard. You may paste this data into another\n"
        "application such as Excel although you may need to use Paste Special (Text)."_s,
        OkButton | InformationIcon, u"Data copied"_s);
}

QString allData(const PupilSheet& sheet, const std::function<bool(int column)>& isVisible) {
    QString text;
    const auto addLine = [&](const std::function<QString(int column)>& cell) {
        for (int column = 0; column < sheet.columnCount(); ++column) {
            if (column > PupilSheet::FirstnameColumn && !isVisible(column))
                continue;
            text += quoted(cell(column));
            text += column == sheet.columnCount() - 1 ? LineEnd : u"\t"_s;
        }
    };
    addLine([&](int column) { return sheet.columns()[column]; });
    for (int row = 0; row < sheet.rowCount(); ++row)
        addLine([&](int column) { return sheet.text(row, column); });
    return text;
}

QString cellsText(const PupilSheet& sheet, const QList<int>& rows, const QList<int>& columns) {
    QStringList lines;
    for (const int row : rows) {
        QStringList cells;
        for (const int column : columns)
            cells += quoted(sheet.text(row, column));
        lines += cells.join(u'\t');
    }
    return lines.size() == 1 ? lines.first() : lines.join(LineEnd) + LineEnd;
}

QList<QStringList> readTable(const QString& text) {
    const QString unified = QString(text).replace(LineEnd, u"\n"_s);
    QList<QStringList> table;
    for (qsizetype place = 0; place < unified.size(); ++place) {
        QStringList line{readCell(unified, place)};
        while (place < unified.size() && unified[place] == u'\t')
            line += readCell(unified, ++place);
        table += line;
    }
    return table;
}

void pasteGrades(PupilSheetModel& model, int firstRow, const QList<int>& columns,
                 const QList<QStringList>& table, const QLocale& locale, Prompts& prompts) {
    qsizetype width = 0;
    for (const QStringList& line : table)
        width = std::max(width, line.size());
    if (tellTooLarge(prompts, table.size(), model.sheet().rowCount() - firstRow,
                     u"There are %1 lines to paste, but %2 pupils from here on."_s) ||
        tellTooLarge(prompts, width, columns.size(),
                     u"There are %1 columns to paste, but %2 from here on."_s))
        return;
    tryTelling(prompts, AfterUpdateFailure, [&] {
        QList<RowChange> changes;
        for (int line = 0; line < table.size(); ++line) {
            for (int cell = 0; cell < table[line].size(); ++cell)
                changes += gradeChange(model.sheet(), firstRow + line, columns[cell],
                                       table[line][cell], locale);
        }
        changes.removeIf([](const RowChange& change) { return change.cells.isEmpty(); });
        model.write(changes);
    });
}
