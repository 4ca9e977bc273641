// Documents written to files without a window.

#include "support/class_file.h"
#include "support/engine_places.h"
#include "support/engine_program.h"
#include "support/year_file.h"

using namespace Qt::StringLiterals;

namespace {

class DocumentCommandsTest : public EngineFiles {
protected:
    void SetUp() override {
        TestSeams seams;
        createYear(twoWeekAnswers(), year, seams);
    }
    int run(const QStringList& arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
        const Ended ended = runProgram(test::built(u"bin/orva-cli"_s),
                                       QStringList{u"document"_s} + arguments, {}, environment);
        return ended.status;
    }

    const QString year = path(u"Year.mdb"_s);
    const QString target = path(u"made.rtf"_s);
};

} // namespace

TEST_F(DocumentCommandsTest, WriteTheirFileAndAskBeforeOneIsReplaced) {
    const struct {
        QStringList arguments;
        int status;
    } cases[] = {
        {{u"timetable"_s, year, u"both"_s}, 0},
        {{u"timetable"_s, year, u"3"_s}, 2},
        {{u"quick"_s, year, u"2024-09-09"_s}, 0},
        {{u"quick"_s, year, u"9.9.2024"_s}, 2},
        {{u"quick"_s, year, u"2024-09-08"_s}, 1},
        {{u"weekly"_s, year, u"2024-09-13"_s, u"2024-09-09"_s, u"7A"_s}, 2},
        {{u"plan"_s, year, u"2024-09-09"_s, u"1"_s}, 0},
        {{u"plan"_s, year, u"2024-09-09"_s, u"99"_s}, 1},
        {{u"incident"_s, year, u"7"_s}, 1},
        {{u"cover"_s, path(u"none.mdb"_s), u"2024-09-09"_s}, 1},
    };
    for (const auto& each : cases) {
        QFile::remove(target);
        EXPECT_EQ(run(each.arguments + QStringList{target}), each.status)
            << qPrintable(each.arguments.join(u' '));
        EXPECT_EQ(QFile::exists(target), each.status == 0) << qPrintable(each.arguments.join(u' '));
    }
    const QStringList again{u"quick"_s, year, u"2024-09-09"_s, target};
    EXPECT_EQ(run(again), 0);
    EXPECT_EQ(run(again), 1);
    EXPECT_EQ(run(again + QStringList{u"--yes"_s}), 0);
}
