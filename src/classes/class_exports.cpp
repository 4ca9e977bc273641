#include "classes/class_exports.h"

#include "classes/pupil_sheet.h"
#include "classes/register_columns.h"
#include "core/clock.h"
#include "core/progress.h"
#include "store/engine/names.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int NameColumns = 2; ///< stay in view
constexpr FailureBox SaveClassFailure{u"Save Class in Excel", u"%1\nError Number: %2",
                                      OkButton | WarningIcon};
constexpr FailureBox SaveGradesFailure{u"Save grades in excel", u"%1\nError number: %2",
                                       OkButton | WarningIcon};

/// A table of some columns of the records, under their fields' names.
ExportTable tableOf(const PupilSheet& records, const QList<int>& columns,
                    CellContent (*content)(const dao::Value&)) {
    ExportTable table;
    for (const int column : columns)
        table.titles += records.columns()[column];
    table.records = records.rowCount();
    table.content = [&records, columns, content](int record, int column) {
        return content(records.value(record, columns[column]));
    };
    return table;
}

/// Writes a table that may be wide on a sheet as it stands in a new workbook.
void fillPlainSheet(Workbook& workbook, const ExportTable& table, Progress& progress) {
    Sheet& sheet = workbook.addSheet(u"Sheet1"_s);
    writeTitles(sheet, table, progress);
    writeRecords(sheet, table, progress);
    createBorders(sheet, table, progress);
    adjustWidths(sheet, table, progress);
    progress.UpdateProgress(100, u"Setting Worksheet Properties."_s);
    sheet.page().landscape = true;
    sheet.page().onePageWide = true;
}

void createFooter(Sheet& sheet, QDate today, Progress& progress) {
    progress.UpdateProgress(0, u"Setting Page Properties."_s, u"   Creating Footer"_s);
    sheet.page().footer.text = u"Created on "_s + today.toString(u"dd-MM-yyyy"_s);
}

/// The names come first, whatever the order of the records' fields.
QList<int> gradeColumnsToExport(const PupilSheet& records,
                                const std::function<bool(int column)>& isVisible) {
    QList<int> columns{records.columnOf(u"Surname"), records.columnOf(u"Firstname")};
    const int id = records.columnOf(u"ID");
    for (int column = 0; column < records.columnCount(); ++column) {
        if (!columns.contains(column) && column != id && isVisible(column))
            columns += column;
    }
    return columns;
}

/// "lesson Date" and "lesson Notes" of each record.
ExportTable lessonNotesTable(dao::Recordset& records, QList<QList<CellContent>>& lines) {
    for (; !records.EOF_(); records.MoveNext()) {
        const QString text = records.Collect(u"Ldate").toText();
        const std::optional<QDate> date = readRegisterDate(text);
        lines.append(
            {date ? CellContent(*date) : CellContent(text), contentOf(records.Collect(u"Lnotes"))});
    }
    return {.row = 1,
            .titles = {u"lesson Date"_s, u"lesson Notes"_s},
            .records = static_cast<int>(lines.size()),
            .content = [&lines](int record, int column) { return lines[record][column]; }};
}

} // namespace

bool exportClassDetails(const PupilSheet& records, const ExportTarget& target) {
    return runExport(target, SaveClassFailure, [&](Workbook& workbook, Progress& progress) {
        QList<int> columns;
        for (int column = 0; column < records.columnCount(); ++column) {
            if (!dao::sameName(records.columns()[column], u"ID"))
                columns += column;
        }
        fillPlainSheet(workbook, tableOf(records, columns, contentOf), progress);
    });
}

bool exportNotesTable(const QList<QStringList>& lines, const ExportTarget& target) {
    return runExport(target, SaveClassFailure, [&](Workbook& workbook, Progress& progress) {
        const ExportTable table{.titles = lines.first(),
                                .records = static_cast<int>(lines.size()) - 1,
                                .content = [&lines](int record, int column) -> CellContent {
                                    return lines[record + 1][column];
                                }};
        fillPlainSheet(workbook, table, progress);
    });
}

bool exportGrades(const PupilSheet& records, const std::function<bool(int column)>& isVisible,
                  const ExportTarget& target) {
    return runExport(target, SaveGradesFailure, [&](Workbook& workbook, Progress& progress) {
        Sheet& sheet = workbook.addSheet(u"Grades"_s);
        const ExportTable table =
            tableOf(records, gradeColumnsToExport(records, isVisible), contentOfMark);
        writeTitles(sheet, table, progress);
        writeRecords(sheet, table, progress);
        createBorders(sheet, table, progress);
        sheet.freezeColumns(NameColumns);
        adjustWidths(sheet, table, progress);
        progress.UpdateProgress(100, u"Setting Worksheet Properties."_s);
        createFooter(sheet, target.seams.clock.today(), progress);
        progress.UpdateProgress(50, {}, u"   Centering Horizonatally"_s);
        sheet.page().centred = true;
        progress.UpdateProgress(100, {}, u"   Setting Landscape"_s);
        sheet.page().landscape = true;
    });
}

bool exportLessonNotes(dao::Recordset records, const QString& pupil, const ExportTarget& target) {
    return runExport(target, SaveGradesFailure, [&](Workbook& workbook, Progress& progress) {
        constexpr double dateWidth = 15;
        constexpr double notesWidth = 80;
        Sheet& sheet = workbook.addSheet(u"Lesson Notes"_s);
        sheet.put(0, 0, u"Lesson Notes for "_s + pupil);
        sheet.addLooks({0, 0, 1, 1}, CellLook::Bold | CellLook::Underlined);
        QList<QList<CellContent>> lines;
        const ExportTable table = lessonNotesTable(records, lines);
        writeTitles(sheet, table, progress);
        writeRecords(sheet, table, progress);
        createBorders(sheet, table, progress);
        sheet.freezeColumns(NameColumns);
        progress.UpdateProgress(100, u"Adjusting Column Widths."_s);
        sheet.setColumnWidth(0, dateWidth);
        sheet.setColumnWidth(1, notesWidth);
        sheet.wrapColumn(1);
        progress.UpdateProgress(100, u"Setting Worksheet Properties."_s);
        createFooter(sheet, target.seams.clock.today(), progress);
        sheet.page().onePageWide = true; // it is a little wider than paper is
    });
}
