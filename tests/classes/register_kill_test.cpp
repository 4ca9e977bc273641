// What a kill while a teacher marks leaves behind: every mark whose cell was left.

#include "classes/class_views.h"
#include "classes/register_marking.h"
#include "support/class_file.h"
#include "support/engine_kill.h"

#include <QRandomGenerator>

namespace {

/// Reports how many marks are on the disk after each: column by column, pupil by pupil.
void markOnFrom(PupilSheetModel& model, const dao::Database& database, int known,
                const std::function<void(int)>& report) {
    const int pupils = model.sheet().rowCount();
    const int lessons = model.sheet().columnCount() - PupilSheet::FirstOwnColumn;
    for (int number = known; number < pupils * lessons; ++number) {
        enterMark(database, u"7A"_s, model, number % pupils,
                  PupilSheet::FirstOwnColumn + number / pupils, u"L"_s);
        report(number + 1);
    }
}

int marksIn(const QString& path) {
    const dao::Database database = dao::DBEngine().OpenDatabase(path);
    int marks = 0;
    for (const QString& row : rowsOf(database, u"REG_7A"_s))
        marks += static_cast<int>(row.count(u'L'));
    return marks;
}

} // namespace

TEST(RegisterKill, OnlyTheMarkBeingTypedCanBeMissing) {
    YearAnswers answers = oneWeekAnswers();
    answers.terms = {{QDate(2024, 9, 2), QDate(2024, 12, 20)}};
    YearFile file(answers);
    addPupils(file.open(), u"7A"_s, {u"Ames,Ann"_s, u"Brown,Bob"_s, u"Cole,Cat"_s});
    QRandomGenerator random(5);
    int known = 0;
    for (int round = 0; round < 40; ++round) {
        const int delay = 100 + random.bounded(8000);
        // After some marks, so that slow disks get somewhere too.
        const int written = static_cast<int>(random.bounded(4));
        const int reported = lastReportOf([&](const auto& report) {
            TestSeams seams;
            const dao::Database database = dao::DBEngine().OpenDatabase(file.path());
            PupilSheetModel model;
            model.setSheet(*openRegister(database, u"7A"_s, {}, seams.prompts));
            if (written == 0)
                endAfter(delay);
            markOnFrom(model, database, known, [&](int number) {
                report(number);
                if (number - known == written)
                    endAfter(delay);
            });
        });
        const int acknowledged = std::max(reported, known);
        const int found = marksIn(file.path());
        ASSERT_TRUE(found == acknowledged || found == acknowledged + 1)
            << "round " << round << ": " << found << " of " << acknowledged;
        known = found;
    }
    EXPECT_GT(known, 5) << "the kills came too early to prove anything";
}
