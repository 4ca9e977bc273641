#include "support/year_file.h"

YearAnswers twoWeekAnswers() {
    YearAnswers answers;
    answers.title = u"Mrs"_s;
    answers.name = u"A Morrow"_s;
    answers.year = u"2024-2025"_s;
    answers.periodsPerDay = 5;
    answers.twoWeeks = true;
    answers.startWeek = u"B"_s;
    answers.terms = {{QDate(2024, 9, 4), QDate(2024, 9, 13)},
                     {QDate(2024, 9, 23), QDate(2024, 9, 27)}};
    answers.classes = {u"7A"_s, u"8X"_s, u"9C"_s};
    answers.colours = {{u"7A"_s, 16744448}};
    const QString a = u"7A"_s;
    const QString c = u"9C"_s;
    answers.weekA[0] = {a, {}, a};
    answers.weekA[4] = {{}, a};
    answers.weekB[0] = {c, c};
    answers.weekB[2] = {{}, {}, {}, {}, a};
    return answers;
}

YearAnswers oneWeekAnswers() {
    YearAnswers answers = twoWeekAnswers();
    answers.twoWeeks = false;
    answers.startWeek.clear();
    answers.weekB = {};
    return answers;
}

YearFile::YearFile(const YearAnswers& answers) : m_answers(answers) {
    createYear(m_answers, path(), m_seams);
}

dao::Database YearFile::open() {
    return m_engine.OpenDatabase(path());
}

void createYear(const YearAnswers& answers, const QString& path, TestSeams& seams,
                ExistingFile existing) {
    CreateDB(dao::DBEngine(), answers, path, existing, seams.progress, seams.prompts, QLocale::c());
}
