// The register's writer, which class_exports.h has beside the others.

#include "calendar/term_weeks.h"
#include "classes/class_exports.h"
#include "classes/pupil_sheet.h"
#include "classes/register_lessons.h"
#include "core/dates.h"
#include "core/progress.h"
#include "store/engine/error.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr int MonthRow = 0;
constexpr int TitleRow = 1;
constexpr double MarkWidth = 2.5; ///< characters
constexpr FailureBox SaveRegisterFailure{u"Save Register in Excel", u"%1\nError number: %2",
                                         OkButton | WarningIcon};

/// A term and its sheet.
struct TermSheet {
    int number = 0;
    QDate first;
    QDate last;
    Sheet* sheet = nullptr;
    int columns = 0; ///< on the sheet, so far
    int month = 0;   ///< of its last lesson, so far

    bool encloses(QDate date) const { return first <= date && date <= last; }
};

QList<TermSheet> makeSheets(const dao::Database& database, Workbook& workbook) {
    const QList<QDate> boundaries = GetTermDays(database).boundaries;
    QList<TermSheet> terms;
    for (qsizetype i = 0; i + 1 < boundaries.size(); i += 2) {
        const int number = static_cast<int>(i / 2) + 1;
        terms.append({number, boundaries[i], boundaries[i + 1],
                      &workbook.addSheet(u"Term(%1)"_s.arg(number))});
    }
    if (terms.isEmpty())
        throw dao::EngineError(dao::NoCurrentRecord, u"The year has no terms."_s);
    return terms;
}

/// A lesson's title is its day of the month; above it stands the month, where that is another than
/// the month of the lesson before.
void writeLessonTitle(TermSheet& term, const QString& field, QDate date) {
    term.sheet->put(TitleRow, term.columns, field.left(2));
    if (date.month() == term.month)
        return;
    term.month = date.month();
    term.sheet->put(MonthRow, term.columns, MonthName(term.month, QLocale()));
    term.sheet->addLooks({MonthRow, term.columns, 1, 1}, CellLook::Bold);
}

void writeCells(TermSheet& term, const PupilSheet& records, int column,
                CellContent (*content)(const dao::Value&)) {
    for (int row = 0; row < records.rowCount(); ++row)
        term.sheet->put(TitleRow + 1 + row, term.columns, content(records.value(row, column)));
}

/// Walks the fields of the records: the names go on each sheet, a lesson on that of its term, all
/// else on none.
void extractTerm(TermSheet& term, const PupilSheet& records, Progress& progress) {
    const QString step = u"Extracting Term (%1) data."_s.arg(term.number);
    for (int column = 0; column < records.columnCount(); ++column) {
        progress.UpdateProgress(percentOf(column + 1, records.columnCount()), step);
        const std::optional<RegisterColumn> lesson = lessonAt(records, column);
        if (lesson && term.encloses(lesson->date)) {
            writeLessonTitle(term, records.columns()[column], lesson->date);
            writeCells(term, records, column, contentOfMark);
            term.sheet->setColumnWidth(term.columns++, MarkWidth);
        } else if (column < PupilSheet::IdColumn) {
            term.sheet->put(TitleRow, term.columns, records.columns()[column]);
            writeCells(term, records, column, contentOf);
            ++term.columns;
        }
    }
}

void formatTerm(const TermSheet& term, int records) {
    formatTable(*term.sheet, {TitleRow, 0, records + 1, term.columns});
    for (int column = 0; column < PupilSheet::IdColumn; ++column)
        term.sheet->fitColumn(column);
}

void setProperties(Sheet& sheet, const QString& classCode, Progress& progress) {
    constexpr int headerPoints = 14;
    constexpr int namesInView = 2;
    sheet.freezeColumns(namesInView);
    progress.UpdateProgress(0, u"Setting Page Properties for the "_s + sheet.name(),
                            u"   Creating Header"_s);
    sheet.page().header = {u"Register for %1 : %2"_s.arg(classCode, sheet.name()), headerPoints,
                           true};
    progress.UpdateProgress(50, {}, u"   Setting Landscape"_s);
    sheet.page().landscape = true;
    progress.UpdateProgress(100, {}, u"   Fit to one page (wide)"_s);
    sheet.page().onePageWide = true;
}

} // namespace

bool exportRegister(const dao::Database& database, const PupilSheet& records,
                    const QString& classCode, const ExportTarget& target) {
    return runExport(target, SaveRegisterFailure, [&](Workbook& workbook, Progress& progress) {
        QList<TermSheet> terms = makeSheets(database, workbook);
        progress.UpdateProgress(0, u"Exporting Column Headers"_s);
        for (TermSheet& term : terms)
            extractTerm(term, records, progress);
        progress.UpdateProgress(100, u"Creating Borders and setting column widths"_s);
        for (const TermSheet& term : terms)
            formatTerm(term, records.rowCount());
        progress.UpdateProgress(0, u"Setting Properties for each sheet."_s);
        for (const TermSheet& term : terms)
            setProperties(*term.sheet, classCode, progress);
    });
}
