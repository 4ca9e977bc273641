#include "full_year.h"

#include "richtext/rtf_writer.h"
#include "sample_year.h"
#include "store/engine/engine.h"
#include "store/table_names.h"

#include <QTextDocument>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int classCount = 8;
constexpr int pupilCount = 30;

/// Puts a class into a period of each day, from 1.
void teachDaily(WeekTimetable& week, qsizetype period, const QString& classCode) {
    for (QStringList& day : week) {
        day.resize(std::max(day.size(), period));
        day[period - 1] = classCode;
    }
}

/// The sample year with a class more, which takes periods from the others.
YearAnswers fullAnswers() {
    YearAnswers answers = sampleAnswers();
    const QString added = u"9M5"_s;
    answers.classes += added;
    answers.classes.sort();
    teachDaily(answers.weekA, 1, added);
    teachDaily(answers.weekB, 2, added);
    if (answers.classes.size() != classCount)
        throw std::runtime_error("The sample year has another number of classes.");
    return answers;
}

/// Gives every class its pupils, with a mark in the first lesson.
void addPupils(const dao::Database& database, const QStringList& classes) {
    for (const QString& classCode : classes) {
        dao::Recordset pupils = database.OpenRecordset(classTable(classCode));
        dao::Recordset lessonMarks = database.OpenRecordset(registerTable(classCode));
        for (int pupil = 1; pupil <= pupilCount; ++pupil) {
            pupils.AddNew();
            pupils.SetCollect(u"Surname", u"Featherstone%1"_s.arg(pupil));
            pupils.SetCollect(u"Firstname", u"Ann"_s);
            pupils.Update();
            lessonMarks.AddNew();
            lessonMarks.SetCollect(u"ID", pupil);
            lessonMarks.SetCollect(1, u"/"_s);
            lessonMarks.Update();
        }
    }
}

} // namespace

QString lessonHtml(int number) {
    QString html;
    for (int line = 0; line < 14; ++line)
        html += u"<p><b>Task %1.%2</b> Work through the examples on page <i>%3</i>, "
                "then check with <span style='color:#ff0000'>a partner</span>; "
                "fast finishers take the extension sheet.</p>"_s.arg(number)
                    .arg(line)
                    .arg(number + line);
    return html;
}

QString lessonRtf(int number) {
    QTextDocument document;
    document.setHtml(lessonHtml(number));
    return richtext::writeDocument(document);
}

QString makeFullYear(const QString& path, int periods, int fullSheets, const QStringList& fields) {
    YearAnswers answers = sampleAnswers();
    answers.periodsPerDay = periods;
    createSampleYear(path, answers);
    dao::Database year = dao::DBEngine().OpenDatabase(path);
    dao::Transaction whole(year);
    dao::Recordset rows = year.OpenRecordset(u"Planning"_s);
    for (int sheet = 0; sheet < fullSheets && !rows.EOF_(); ++sheet, rows.MoveNext()) {
        const QString lesson = lessonRtf(sheet);
        rows.Edit();
        for (const QString& field : fields)
            rows.SetCollect(field, lesson);
        rows.Update();
    }
    whole.commit();
    return path;
}

void makeYearOfClasses(const QString& path) {
    const YearAnswers answers = fullAnswers();
    createSampleYear(path, answers);
    const dao::Database database = dao::DBEngine().OpenDatabase(path);
    dao::Transaction whole(database);
    addPupils(database, answers.classes);
    whole.commit();
}
