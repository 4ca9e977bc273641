// The archive of a class without windows.

#include "support/class_file.h"
#include "support/engine_places.h"
#include "support/engine_program.h"

namespace {

class ArchiveCommandsTest : public EngineFiles {
protected:
    void SetUp() override {
        TestSeams seams;
        createYear(twoWeekAnswers(), path(u"Year.mdb"_s), seams);
        addPupils(engine.OpenDatabase(path(u"Year.mdb"_s)), u"9C"_s, {u"Ames,Ann"_s});
    }
    /// Runs the program in the folder of the test, where everything is that it keeps.
    Ended run(const QStringList& arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "HOME"})
            environment.insert(QString::fromLatin1(folder), path({}));
        return runProgram(test::built(u"bin/orva-cli"_s), arguments, {}, environment);
    }
};

} // namespace

TEST_F(ArchiveCommandsTest, ArchivesAClassOrSaysWhyNot) {
    const QString year = path(u"Year.mdb"_s);
    const Ended done = run({u"archive"_s, year, u"9C"_s, path(u"gone"_s)});
    EXPECT_EQ(done.status, 0) << qPrintable(done.errors);
    EXPECT_EQ(done.errors, QString());
    EXPECT_EQ(rowsOf(engine.OpenDatabase(path(u"gone.mdb"_s)), u"SELECT Surname FROM Class_9C"_s),
              QStringList{u"Ames"_s});
    for (const QStringList& wrong : {QStringList{u"archive"_s, year, u"none"_s, path(u"gone"_s)},
                                     QStringList{u"archive"_s, year, u"9C"_s, year}}) {
        const Ended refused = run(wrong);
        EXPECT_EQ(refused.status, 1);
        EXPECT_TRUE(refused.errors.startsWith(u"[Archive Class] "_s)) << qPrintable(refused.errors);
    }
    EXPECT_EQ(run({u"archive"_s, year, u"9C"_s}).status, 2);
}
