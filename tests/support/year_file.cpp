#include "support/year_file.h"

YearAnswers twoWeekAnswers() {
    YearAnswers answers;
    answers.title = QStringLiteral("Mrs");
    answers.name = QStringLiteral("A Morrow");
    answers.year = QStringLiteral("2024-2025");
    answers.periodsPerDay = 5;
    answers.twoWeeks = true;
    answers.startWeek = QStringLiteral("B");
    answers.terms = {{QDate(2024, 9, 4), QDate(2024, 9, 13)},
                     {QDate(2024, 9, 23), QDate(2024, 9, 27)}};
    answers.classes = {QStringLiteral("7A"), QStringLiteral("8X"), QStringLiteral("9C")};
    answers.colours = {{QStringLiteral("7A"), 16744448}};
    const QString a = QStringLiteral("7A");
    const QString c = QStringLiteral("9C");
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
