#include "planning/cover_sheets.h"

#include "classes/pupil_names.h"
#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "store/engine/names.h"

#include <QHash>
#include <QLocale>

using namespace Qt::StringLiterals;
using richtext::TwipsPerPoint;

namespace {

const QString CoverCancelled = u"Document creation cancelled."_s;
const FailureBox CoverFailure{CoverCancelled};
constexpr int TitleSize = 20;
constexpr int TitleHeight = 72; ///< points that the title takes from a page
/// Points from the left margin to the box for the cover, room for the register, and the box's
/// height where the paper has it.
constexpr int BoxLeft = 200;
constexpr int BoxHeight = 600;
constexpr int Gap = 10;

/// The pupils of each class, by its code as the sheet has it.
using Registers = QHash<QString, QList<ClassPupil>>;

QString lessonCaption(const PlannedLesson& lesson) {
    return u"Period %1   Class: %2"_s.arg(lesson.period).arg(lesson.classCode);
}

richtext::Table registerTable(const QList<ClassPupil>& pupils, int usableTwips) {
    constexpr qsizetype mostInSize = 40; // more rows than that are not on one page
    const int size = pupils.size() > mostInSize ? 8 : 11;
    const int column = (BoxLeft - Gap) * TwipsPerPoint * 1000 / usableTwips / 2;
    const auto row = [&](const QString& forename, const QString& surname, bool isHeading) {
        const richtext::TextLook look{.size = size, .bold = isHeading};
        return richtext::TableRow{{cellOf(forename, column, look), cellOf(surname, column, look)}};
    };
    richtext::Table table;
    table.reserve(pupils.size() + 1);
    table += row(u"First name"_s, u"Surname"_s, true);
    for (const ClassPupil& pupil : pupils)
        table += row(pupil.forename, pupil.surname, false);
    return table;
}

void addCoverBox(WordDocument& word) {
    const QSize usable = word.paper().usable();
    const int left = BoxLeft * TwipsPerPoint;
    const int top = TitleHeight * TwipsPerPoint;
    const int height = qMin(BoxHeight * TwipsPerPoint, usable.height() - top);
    word.addTextBox({left, top, usable.width() - left, height},
                    u"Enter the cover for this lesson here.\n\nHOMEWORK\n"_s);
}

/// All at one go: while the progress is shown another window may want to write.
Registers readRegisters(const dao::Database& year, const QList<PlannedLesson>& lessons) {
    const dao::Reading atOnce(year);
    Registers registers;
    for (const PlannedLesson& lesson : lessons) {
        if (!registers.contains(lesson.classCode))
            registers.insert(lesson.classCode, classPupils(year, lesson.classCode));
    }
    return registers;
}

void addCover(WordDocument& word, const PlannedLesson& lesson, const QList<ClassPupil>& pupils,
              qsizetype n, qsizetype count) {
    const int percent = static_cast<int>((n - 1) * 100 / count);
    const auto step = [&](const QString& what) {
        word.step(percent, what + u": Page "_s + QString::number(n));
    };
    word.step(percent, u"Creating Word Document"_s);
    step(u"Creating Document"_s);
    if (n > 1)
        word.Word_NewPage();
    step(u"Adding Title"_s);
    addCoverBox(word); // before the title, whose page it goes to
    word.Word_AddTitle(u"Cover for %1\nPeriod %2"_s.arg(lesson.classCode).arg(lesson.period),
                       TitleSize, true, false);
    step(u"Obtaining Class Register"_s);
    step(u"Creating Register table"_s);
    word.Word_AddTable(registerTable(pupils, word.paper().usable().width()));
}

} // namespace

QList<PlannedLesson> coverLessons(const Session& session, QDate date) {
    QList<PlannedLesson> lessons =
        plannedLessons(session.CurrentDB, session.PeriodsPerDay,
                       {.days = DatePeriod{date, date}, .withTexts = false});
    lessons.removeIf([&](const PlannedLesson& lesson) {
        const auto& classes = session.ClassColours;
        return std::none_of(classes.begin(), classes.end(), [&](const ClassColour& each) {
            return dao::compareText(each.code, lesson.classCode) == 0;
        });
    });
    return lessons;
}

bool CreateCoverSheets(const Session& session, const DocumentPlace& place,
                       const QList<PlannedLesson>& lessons) {
    WordDocument word(session.GetSeams(), place, CoverCancelled);
    if (!word.Word_Start())
        return false;
    Registers registers;
    if (!tryTelling(session.GetSeams().prompts, CoverFailure,
                    [&] { registers = readRegisters(session.CurrentDB, lessons); }))
        return false;
    for (qsizetype n = 1; n <= lessons.size(); ++n)
        addCover(word, lessons[n - 1], registers.value(lessons[n - 1].classCode), n,
                 lessons.size());
    return word.Word_Finish(u"Cover sheets"_s);
}

bool ExportCoverSheets(const Session& session, const DocumentPlace& place, QDate date) {
    Prompts& prompts = session.GetSeams().prompts;
    QList<PlannedLesson> lessons;
    if (!tryTelling(prompts, CoverFailure, [&] { lessons = coverLessons(session, date); }))
        return false;
    if (lessons.isEmpty()) {
        prompts.msg_Box(u"There are no lessons on "_s +
                            QLocale().toString(date, QLocale::LongFormat),
                        OkButton | WarningIcon, u"No lessons found."_s);
        return false;
    }
    if (!place.target.isEmpty())
        return CreateCoverSheets(session, place, lessons);
    SeveralItemsRequest request;
    request.title = u"Create Cover Sheet(s)"_s;
    request.text = u"Please select the lessons that need a cover sheet:"_s;
    for (const PlannedLesson& lesson : std::as_const(lessons))
        request.items += lessonCaption(lesson);
    QList<PlannedLesson> chosen;
    for (const int each : prompts.ReturnString(request).value_or(QList<int>()))
        chosen += lessons[each];
    return !chosen.isEmpty() && CreateCoverSheets(session, place, chosen);
}
