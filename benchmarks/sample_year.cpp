#include "sample_year.h"

#include "quiet_session.h"

#include "planning/sheet_fields.h"
#include "year/year_answers_json.h"
#include "year/year_creation.h"

#include <QFile>

#include <stdexcept>

YearAnswers sampleAnswers() {
    QFile file(QStringLiteral(ORVA_SAMPLES "/year.json"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("The sample year's answers could not be read.");
    const ReadAnswers read = readYearAnswers(file.readAll(), QLocale::c());
    if (read.fault)
        throw std::runtime_error("The sample year's answers do not hold.");
    return read.answers;
}

void createSampleYear(const QString& path, const YearAnswers& answers) {
    SilentProgress progress;
    ConsolePrompts prompts;
    CreateDB(dao::DBEngine(), answers, path, ExistingFile::Keep, progress, prompts, QLocale::c());
}

QStringList lessonFields(int periods) {
    QStringList fields;
    for (int period = 1; period <= periods; ++period)
        fields += {fieldOf({SheetBox::Lesson, period}), fieldOf({SheetBox::Homework, period})};
    return fields;
}

QStringList sheetFields(int periods) {
    QStringList fields = lessonFields(periods);
    for (const SheetBox block : {SheetBox::Dinner, SheetBox::AfterSchool, SheetBox::Notes})
        fields += fieldOf({block, 0});
    return fields;
}
