#include "calendar/timetable_document.h"

#include "calendar/timetable.h"
#include "core/contrast.h"
#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"

using namespace Qt::StringLiterals;
using richtext::TwipsPerInch;

namespace {

constexpr FailureBox TimetableFailure{u"Document creation cancelled"};
constexpr int PeriodWidth = 100; ///< parts of a row's width
constexpr int DayWidth = (1000 - PeriodWidth) / TimetableGrid::Days;
constexpr int CellSize = 11;

richtext::Paper timetablePaper() {
    constexpr int wide = TwipsPerInch / 2;
    constexpr int high = TwipsPerInch * 3 / 4;
    return {.size = {11 * TwipsPerInch, 17 * TwipsPerInch / 2},
            .margins = {wide, high, wide, high}};
}

/// Of a colour with red in the low byte.
QRgb shade(qint32 colour) {
    const auto bits = static_cast<quint32>(colour);
    return qRgb(static_cast<int>(bits & 0xFF), static_cast<int>(bits >> 8 & 0xFF),
                static_cast<int>(bits >> 16 & 0xFF));
}

richtext::TableCell dayCell(const TimetableCell& cell) {
    richtext::TableCell made = cellOf(cell.caption, DayWidth, {.size = CellSize, .centred = true});
    if (!cell.room.isEmpty())
        made.text += u'\n' + cell.room;
    if (cell.colour == DefaultCellColour)
        return made;
    const QColor ground(shade(cell.colour));
    made.ground = ground.rgb();
    if (contrast(ground, Qt::white) > contrast(ground, Qt::black))
        made.look.colour = qRgb(255, 255, 255);
    return made;
}

/// Rows as high as lets the week fill its page, within reason.
int rowHeight(const richtext::Paper& paper, int periods) {
    constexpr int titles = TwipsPerInch * 5 / 4;
    constexpr int most = TwipsPerInch;
    return qMin(most, (paper.usable().height() - titles) / (periods + 1));
}

richtext::Table weekTable(const TimetableGrid& grid, int height) {
    const richtext::TextLook heading{.size = CellSize, .bold = true, .centred = true};
    richtext::TableRow head{{cellOf(u"Period"_s, PeriodWidth, heading)}};
    for (int day = Monday; day <= Friday; ++day)
        head.cells += cellOf(DayName(day), DayWidth, heading);
    richtext::Table table{head};
    for (int period = 1; period <= grid.periods(); ++period) {
        richtext::TableRow row{{cellOf(QString::number(period), PeriodWidth, heading)}};
        row.height = height;
        for (int day = 1; day <= TimetableGrid::Days; ++day)
            row.cells += dayCell(grid.at(day, period));
        table += row;
    }
    return table;
}

void addWeek(WordDocument& word, const dao::Database& database, const TimetableYear& year,
             int index) {
    const QString week = year.twoWeeks ? (index == 0 ? u"Week A"_s : u"Week B"_s) : u"Week"_s;
    word.step(20 + 40 * index, u"Acquiring Data : "_s + week);
    TimetableGrid grid(year.periodsPerDay);
    LoadTT(database, index, grid);
    word.step(40 + 40 * index, u"Formatting Table Data : "_s + week);
    if (year.twoWeeks)
        word.Word_AddTitle(week, CellSize + 1, true, true);
    word.Word_AddTable(weekTable(grid, rowHeight(word.paper(), grid.periods())));
}

} // namespace

bool CreateTimetableDocument(const Session& session, const DocumentPlace& place,
                             TimetableWeeks weeks) {
    const Seams& seams = session.GetSeams();
    WordDocument word(seams, place);
    bool isMade = false;
    tryTelling(seams.prompts, TimetableFailure, [&] {
        const TimetableYear year = readTimetableYear(session.CurrentDB);
        if (!year.twoWeeks && weeks == TimetableWeeks::Second) {
            seams.prompts.msg_Box(u"The timetable of this year has one week."_s,
                                  OkButton | WarningIcon, u"Document creation cancelled"_s);
            return;
        }
        if (!word.Word_Start())
            return;
        word.step(10, u"Setting page properties"_s);
        word.Word_PageSetup(timetablePaper());
        word.Word_AddTitle(timetableTitle(year), 14, true, true);
        if (weeks != TimetableWeeks::Second)
            addWeek(word, session.CurrentDB, year, 0);
        if (weeks == TimetableWeeks::Both && year.twoWeeks)
            word.Word_NewPage();
        if (weeks != TimetableWeeks::First && year.twoWeeks)
            addWeek(word, session.CurrentDB, year, 1);
        isMade = true;
    });
    return isMade && word.Word_Finish(u"Timetable"_s);
}

bool ExportTimetable(const Session& session, const DocumentPlace& place) {
    if (session.TTweekly != 1)
        return CreateTimetableDocument(session, place, TimetableWeeks::First);
    OneItemRequest request;
    request.title = u"Export Timetable"_s;
    request.text = u"Please select the weeks to export:"_s;
    request.items = {u"Week A"_s, u"Week B"_s, u"Both weeks"_s};
    const std::optional<int> choice = session.GetSeams().prompts.ReturnString(request);
    return choice && CreateTimetableDocument(session, place, static_cast<TimetableWeeks>(*choice));
}
