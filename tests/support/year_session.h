#pragma once

#include "core/session.h"
#include "core/settings.h"
#include "support/year_file.h"
#include "year/year_opening.h"

/// A session whose files are in a folder of the test's own, and the year that is open in it.
class YearSession : public testing::Test {
protected:
    QString path(const QString& name = u"year.mdb"_s) const { return folder.filePath(name); }

    /// Makes the year of the answers and opens it, in place of the one before.
    void openYear(const YearAnswers& answers) {
        session.CurrentDB.Close();
        createYear(answers, path(), seams, ExistingFile::Replace);
        ASSERT_EQ(session.OpenDatabaseFile(path(), {}), OpenDone);
    }
    dao::Recordset rows(const QString& source) { return session.CurrentDB.OpenRecordset(source); }
    /// Sets a field of the first record of a source.
    void put(const QString& source, const QString& field, const dao::Value& value) {
        changeRecord(session.CurrentDB, source, field, value);
    }

    QTemporaryDir folder;
    TestSeams seams;
    dao::DBEngine engine;
    Settings settings{path(u"settings.ini"_s)};
    Session session{engine, settings, seams.seams(), yearOpening()};
};
