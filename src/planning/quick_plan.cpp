#include "planning/quick_plan.h"

#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "office/plain_cell.h"
#include "planning/sheet_fields.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox QuickPlanFailure{u"Document creation cancelled"};
/// Parts of a row's width.
constexpr int Eighth = 125;
constexpr int Quarter = 250;
constexpr int Half = 500;
constexpr int Third = 333;

const richtext::TextLook Heading{.size = 16, .bold = true};
const richtext::TextLook BlockLabel{.size = 14, .bold = true};

richtext::TableRow headingRow() {
    return {{cellOf(u"Period"_s, Eighth, Heading), cellOf(u"Class"_s, Eighth, Heading),
             cellOf(u"Lesson Planning"_s, Half, Heading), cellOf(u"Homework"_s, Quarter, Heading)}};
}

richtext::TableRow periodRow(const dao::Recordset& sheet, int period) {
    const auto text = [&](SheetBox box) {
        return plainCellText(sheet.Collect(fieldOf({box, period})).toText());
    };
    return {{cellOf(QString::number(period), Eighth, Heading),
             cellOf(sheet.Collect(classField(period)).toText(), Eighth),
             cellOf(text(SheetBox::Lesson), Half), cellOf(text(SheetBox::Homework), Quarter)}};
}

richtext::TableRow blockRow(const dao::Recordset& sheet, SheetBox box) {
    return {{cellOf(blockCaption(box), Third, BlockLabel),
             cellOf(plainCellText(sheet.Collect(fieldOf({box})).toText()), 1000 - Third)}};
}

richtext::Table sheetTable(const Session& session, QDate date) {
    const dao::Recordset sheet = readSheet(session.CurrentDB, sheetDateText(date));
    richtext::Table table{headingRow()};
    for (int period = 1; period <= session.PeriodsPerDay; ++period)
        table += periodRow(sheet, period);
    for (const SheetBox box : {SheetBox::Dinner, SheetBox::AfterSchool, SheetBox::Notes})
        table += blockRow(sheet, box);
    return table;
}

} // namespace

bool CreateQuickPlan(const Session& session, const DocumentPlace& place, QDate date) {
    WordDocument word(session.GetSeams(), place);
    if (!word.Word_Start())
        return false;
    word.step(10, u"Creating a New Document"_s);
    word.Word_PageSetup(narrowMargins(usualPaper()));
    word.Word_AddTitle(u"Quick Plan for : "_s + QLocale().toString(date, QLocale::LongFormat), 16,
                       true, false);
    const bool isMade = tryTelling(session.GetSeams().prompts, QuickPlanFailure, [&] {
        word.step(30, u"Acquiring Data"_s);
        const richtext::Table table = sheetTable(session, date);
        word.step(60, u"Exporting Data"_s);
        word.repeatHeading(headingRow());
        word.Word_AddTable(table);
        word.step(80, u"Formatting Table"_s);
    });
    return isMade && word.Word_Finish(u"Quick Plan"_s);
}
