#include "planning/plan_choices.h"

using namespace Qt::StringLiterals;

QStringList timingChoices(LessonPart part) {
    constexpr int step = 5;
    const bool isMain = part == LessonPart::Main;
    const int shortest = isMain ? 15 : 5;
    const int longest = isMain ? 50 : 30;
    QStringList choices;
    for (int minutes = shortest; minutes <= longest; minutes += step)
        choices += u"%1 mins"_s.arg(minutes);
    return choices;
}

QStringList termChoices(int terms) {
    QStringList choices;
    for (int term = 1; term <= terms; ++term)
        choices += u"Term (%1)"_s.arg(term);
    return choices;
}

QStringList subjectChoices() {
    return {u"Mathematics"_s, u"Science"_s, u"English"_s};
}
