#pragma once

#include "core/settings.h"
#include "store/schema.h"
#include "support/engine_files.h"
#include "support/engine_kill.h"
#include "support/recording_seams.h"
#include "year/backup_files.h"

/// A year with pupils in a folder of its own, an empty backup folder, and what backups work with.
class BackupFiles : public EngineFiles {
protected:
    static constexpr int Pupils = 60;

    void SetUp() override {
        for (const char* folder : {"year", "backups", "app", "open"})
            QDir().mkpath(path(QLatin1StringView(folder)));
        backups = path(u"backups/"_s);
        database = path(u"year/Year.mdb"_s);
        makeYear(u"year/Year.mdb"_s);
    }

    /// A file of pupils with room in it that compaction gives back.
    void makeYear(const QString& name) {
        dao::Database year = pupilsFile(name);
        for (const Table table : {Table::Admin, Table::Planning, Table::TermDates})
            year.TableDefs().Append(schemaTableDef(table));
        dao::Transaction filling(year);
        for (int i = 0; i < Pupils; ++i)
            addRecord(year, u"Pupils"_s, {u"Adams"_s, i, QString(3000, u'n')});
        dao::Recordset all = year.OpenRecordset(u"Pupils"_s);
        for (; !all.EOF_(); all.MoveNext()) {
            all.Edit();
            all[u"Notes"] = u"short"_s;
            all.Update();
        }
        filling.commit();
        year.Close();
    }

    void protect(const QString& file, const QString& password) {
        dao::Database year = engine.OpenDatabase(file);
        year.NewPassword({}, password);
        year.Close();
    }

    BackupContext context() {
        FolderDefaults folders;
        folders[OpenFolder].folder = path(u"open/"_s);
        folders[BackupFolder].folder = backups;
        return {engine, test.seams(), settings, path(u"app/"_s), folders};
    }

    /// How many pupils a file has, if it opens.
    int pupilsIn(const QString& file, const QString& password = {}) const {
        const dao::Database year =
            engine.OpenDatabase(file, false, true, dao::connectText(password));
        return static_cast<int>(rowsOf(year, u"Pupils"_s).size());
    }

    QString backup(int number) const { return backups + u"Year.00%1"_s.arg(number); }

    /// The files of a folder, hidden ones too, sorted by name.
    static QStringList filesIn(const QString& folder) {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    /// Does work in a process of its own. True when it got to the end.
    static bool completes(const std::function<void()>& work) {
        return statusOf([&work] {
                   work();
                   return 0;
               }) == 0;
    }

    QString backups;  ///< with a separator at its end
    QString database; ///< year/Year.mdb
    TestSeams test;
    Settings settings{path(u"settings.conf"_s)};
};
