#include "classes/export_steps.h"

#include "core/progress.h"
#include "store/engine/error.h"
#include "store/engine/value.h"

#include <QLocale>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

void tellCutTexts(Prompts& prompts, const QStringList& cells) {
    constexpr int mostNamed = 10;
    if (cells.isEmpty())
        return;
    QString named = cells.first(qMin<qsizetype>(cells.size(), mostNamed)).join(u'\n');
    if (cells.size() > mostNamed)
        named += u"\n..."_s;
    prompts.PlainBox(
        u"A cell of a spreadsheet holds %1 characters at most. The rest of the text is "
        "left out in:\n\n%2"_s.arg(Sheet::LongestText)
            .arg(named),
        OkButton | WarningIcon, u"Text too long"_s);
}

void saveWorksheet(const Workbook& workbook, const ExportTarget& target) {
    constexpr int begun = 50;
    constexpr int done = 100;
    target.seams.progress.UpdateProgress(begun, u"Saving Worksheet."_s);
    const QString file = workbookName(target.file, Qt::CaseInsensitive);
    target.seams.progress.UpdateProgress(done);
    saveWorkbook(workbook, file);
}

} // namespace

QString workbookName(const QString& name, Qt::CaseSensitivity sensitivity) {
    const bool isWhole =
        name.endsWith(u".xls"_s, sensitivity) || name.endsWith(u".xlsx"_s, sensitivity);
    return isWhole ? name : name + u".xls"_s;
}

bool runExport(const ExportTarget& target, const FailureBox& failure,
               const std::function<void(Workbook&, Progress&)>& fill) {
    Workbook workbook;
    std::optional<dao::EngineError> raised;
    {
        const ProgressWindow window(target.seams.progress, u"Exporting to Excel:"_s);
        try {
            fill(workbook, target.seams.progress);
            saveWorksheet(workbook, target);
        } catch (const dao::EngineError& error) {
            raised = error;
        }
    }
    if (raised)
        tellFailure(target.seams.prompts, failure, *raised);
    else
        tellCutTexts(target.seams.prompts, workbook.cutTexts());
    return !raised;
}

CellArea ExportTable::area() const {
    return {row, 0, records + 1, static_cast<int>(titles.size())};
}

void writeTitles(Sheet& sheet, const ExportTable& table, Progress& progress) {
    for (int column = 0; column < table.titles.size(); ++column) {
        progress.UpdateProgress(percentOf(column + 1, table.titles.size()),
                                u"Exporting Column Headers"_s);
        sheet.put(table.row, column, table.titles[column]);
    }
}

void writeRecords(Sheet& sheet, const ExportTable& table, Progress& progress) {
    constexpr int leftForTheRest = 4; // per cent
    for (int record = 0; record < table.records; ++record) {
        progress.UpdateProgress(qMax(0, percentOf(record + 1, table.records) - leftForTheRest),
                                u"Populating Cell information."_s);
        for (int column = 0; column < table.titles.size(); ++column)
            sheet.put(table.row + 1 + record, column, table.content(record, column));
    }
}

void formatTable(Sheet& sheet, const CellArea& area) {
    sheet.addLooks({area.row, area.column, 1, area.columns}, CellLook::Filled | CellLook::Bold);
    sheet.addLooks(area, CellLook::Bordered);
}

void createBorders(Sheet& sheet, const ExportTable& table, Progress& progress) {
    progress.UpdateProgress(100, u"Creating Borders"_s);
    formatTable(sheet, table.area());
}

void adjustWidths(Sheet& sheet, const ExportTable& table, Progress& progress) {
    for (int column = 0; column < table.titles.size(); ++column) {
        progress.UpdateProgress(percentOf(column + 1, table.titles.size()),
                                u"Adjusting Column Widths."_s);
        sheet.fitColumn(column);
    }
}

int percentOf(qsizetype position, qsizetype end) {
    return end > 0 ? static_cast<int>(position * 100 / end) : 100;
}

CellContent contentOf(const dao::Value& value) {
    if (value.isNull() || value.isBinary())
        return {};
    return value.isText() ? CellContent(value.toText()) : CellContent(value.toDouble());
}

CellContent contentOfMark(const dao::Value& value) {
    if (!value.isText())
        return contentOf(value);
    const QString plain = value.toText().replace(QLocale().decimalPoint(), u"."_s);
    bool isNumber = false;
    const double number = plain.toDouble(&isNumber);
    return isNumber && dao::numberText(number) == plain ? CellContent(number) : contentOf(value);
}
