#pragma once

#include "store/table_names.h"
#include "store/table_structure.h"
#include "support/engine_files.h"
#include "support/recording_seams.h"
#include "year/year_creation.h"

/// Short answers that pass the checks: two timetables from week B on, 4 to 13 and 23 to 27
/// September 2024, five periods. 7A is taught in both weeks, 9C in week B alone (Monday 1 and 2),
/// 8X never.
YearAnswers twoWeekAnswers();
/// The same with one timetable, that of week A.
YearAnswers oneWeekAnswers();

/// A year's file in a folder of its own, which goes with the object.
class YearFile {
public:
    explicit YearFile(const YearAnswers& answers);

    const YearAnswers& answers() const { return m_answers; }
    QString path() const { return m_folder.filePath(u"year.mdb"_s); }
    /// Opens it, for as long as the object lives.
    dao::Database open();
    TestSeams& seams() { return m_seams; }

private:
    QTemporaryDir m_folder;
    YearAnswers m_answers;
    TestSeams m_seams;
    dao::DBEngine m_engine;
};

/// Makes the file of the answers at a path, with everything that a test leaves to chance.
void createYear(const YearAnswers& answers, const QString& path, TestSeams& seams,
                ExistingFile existing = ExistingFile::Keep);
