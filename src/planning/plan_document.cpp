#include "planning/plan_document.h"

#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/session.h"
#include "office/document_templates.h"
#include "office/plain_cell.h"
#include "planning/sheet_fields.h"
#include "richtext/rtf_template.h"
#include "store/engine/names.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox PlanDocumentFailure{u"Document creation cancelled"};
const DocumentTemplate PlanTemplate{
    u"STP1.dot"_s,
    u"The template download is complete, would you like to create a short term plan now?"_s};

/// A bookmark and the field of `STPdata` behind it; a step of the progress begins with some.
struct PlanMark {
    QString bookmark;
    QString field;
    QString step = {};
};
const PlanMark PlanMarks[] = {
    {u"Time1"_s, u"StartTime"_s, u"Collecting additional information"_s},
    {u"Activity1"_s, u"StartAct"_s},
    {u"Time2"_s, u"MainTime"_s},
    {u"Time3"_s, u"PlenaryTime"_s},
    {u"Comments"_s, u"Comments"_s},
    {u"Objectives2"_s, u"MainObj"_s},
    {u"Objectives1"_s, u"StartObj"_s},
    {u"KeyQuestions"_s, u"PlenaryObj"_s},
    {u"Level"_s, u"Ability"_s},
    {u"LSA"_s, u"LSA"_s},
    {u"Term"_s, u"Term"_s},
    {u"UnitOfStudy"_s, u"POS"_s, u"Adding additional infirmation"_s},
};

void fillLesson(WordDocument& word, richtext::RtfTemplate& document, const Session& session,
                QDate date, int period) {
    const dao::Recordset sheet = readSheet(session.CurrentDB, sheetDateText(date));
    const auto text = [&](const QString& field) {
        return plainCellText(sheet.Collect(field).toText());
    };
    word.step(10, u"Adding Plan Date"_s);
    document.fillBookmark(u"Date"_s, QLocale().toString(date, QLocale::LongFormat));
    word.step(20, u"Adding Class Name"_s);
    document.fillBookmark(u"Class"_s, text(classField(period)));
    word.step(30, u"Adding Main Activity"_s);
    document.fillBookmark(u"Activity2"_s, text(fieldOf({SheetBox::Lesson, period})));
    word.step(40, u"Adding Homework"_s);
    document.fillBookmark(u"Homework"_s, text(fieldOf({SheetBox::Homework, period})));
}

/// Without a plan its bookmarks stay as the template has them.
void fillPlan(WordDocument& word, richtext::RtfTemplate& document, const Session& session,
              QDate date, int period) {
    const dao::Recordset plan = session.CurrentDB.OpenRecordset(
        u"SELECT * FROM %1 WHERE PlanDate = %2 AND Period = %3;"_s.arg(
            STPdataTable, dao::writeText(sheetDateText(date)),
            dao::writeText(QString::number(period))),
        dao::RecordsetType::Snapshot);
    if (plan.EOF_())
        return;
    for (const PlanMark& mark : PlanMarks) {
        if (!mark.step.isEmpty())
            word.step(60, mark.step);
        document.fillBookmark(mark.bookmark, plainCellText(plan.Collect(mark.field).toText()));
    }
}

} // namespace

bool CreateShortTermPlan(const Session& session, const DocumentPlace& place, QDate date,
                         int period) {
    const Seams& seams = session.GetSeams();
    WordDocument word(seams, place);
    if (!word.Word_Start())
        return false;
    const std::optional<QByteArray> source = ReadTemplate(seams, place, PlanTemplate);
    if (!source)
        return false;
    richtext::RtfTemplate document(*source);
    const bool isMade = tryTelling(seams.prompts, PlanDocumentFailure, [&] {
        fillLesson(word, document, session, date, period);
        if (TableExists(session.CurrentDB, STPdataTable))
            fillPlan(word, document, session, date, period);
    });
    return isMade && word.Word_Finish(u"Short Term Plan"_s, document.source());
}
