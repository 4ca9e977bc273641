// Work on a class: its register read, a mark typed, a column filled.

#include "figures.h"
#include "raw_library.h"
#include "sample_class.h"

#include "classes/class_views.h"
#include "classes/register_marking.h"
#include "core/console_prompts.h"
#include "store/engine/engine.h"

using namespace Qt::StringLiterals;

namespace {

/// A lesson in the middle of the year, the first of its day.
constexpr int lessonInTheMiddle = SampleClassMarked + 1;
constexpr int markColumn = PupilSheet::FirstOwnColumn + lessonInTheMiddle - 1;
constexpr int pupilCount = SampleClassPupils;

const QString classCode = SampleClassCode;

/// A class's register, open as its window has it.
class OpenRegister {
protected:
    explicit OpenRegister(const QString& path) : m_database(m_engine.OpenDatabase(path)) { open(); }

    void open() { m_model.setSheet(*openRegister(m_database, classCode, {}, m_prompts)); }

    dao::DBEngine m_engine;
    dao::Database m_database;
    ConsolePrompts m_prompts;
    PupilSheetModel m_model;
};

/// Opens the register and reads every cell as a view does.
class Reading : public Work, OpenRegister {
public:
    explicit Reading(const QString& path) : OpenRegister(path) {}

    void run() override {
        open();
        m_size = 0;
        for (int row = 0; row < m_model.rowCount(); ++row) {
            for (int column = 0; column < m_model.columnCount(); ++column)
                m_size += m_model.data(m_model.index(row, column)).toString().size();
        }
    }
    qint64 finish() override { return m_size; }

private:
    qint64 m_size = 0;
};

class RawReading : public Work {
public:
    explicit RawReading(const QString& path) : m_database(path) {}

    void run() override {
        m_texts.clear();
        m_size = 0;
        const RawStatement rows = m_database.prepare(
            "SELECT Class_7A.Surname, Class_7A.Firstname, Class_7A.Tutor, REG_7A.* FROM Class_7A "
            "INNER JOIN REG_7A ON Class_7A.ID = REG_7A.ID ORDER BY Surname");
        while (m_database.step(rows)) {
            for (int column = 0; column < sqlite3_column_count(rows.get()); ++column) {
                const auto* text = sqlite3_column_text(rows.get(), column);
                m_texts += QString::fromUtf8(reinterpret_cast<const char*>(text));
            }
        }
        for (const QString& text : std::as_const(m_texts))
            m_size += text.size();
    }
    qint64 finish() override { return m_size; }

private:
    RawDatabase m_database;
    QStringList m_texts;
    qint64 m_size = 0;
};

class Marking : public Work, OpenRegister {
public:
    explicit Marking(const QString& path) : OpenRegister(path) {}

    void run() override {
        ++m_marks; // the number of pupils is odd, so each gets another mark in the next pass
        enterMark(m_database, classCode, m_model, m_marks % pupilCount, markColumn,
                  m_marks % 2 ? u"/"_s : u"O"_s);
    }
    qint64 finish() override { return 1; }

private:
    int m_marks = 0;
};

class RawMarking : public Work {
public:
    explicit RawMarking(const QString& path)
        : m_database(path)
        , m_update(m_database.prepare("UPDATE REG_7A SET \"" + sampleLessonName(lessonInTheMiddle) +
                                      "\" = ?1 WHERE ID = ?2")) {}

    void run() override {
        ++m_marks;
        sqlite3_bind_text(m_update.get(), 1, m_marks % 2 ? "/" : "O", 1, SQLITE_STATIC);
        sqlite3_bind_int(m_update.get(), 2, m_marks % pupilCount + 1);
        m_database.step(m_update);
        sqlite3_reset(m_update.get());
    }
    qint64 finish() override { return 1; }

private:
    RawDatabase m_database;
    RawStatement m_update;
    int m_marks = 0;
};

/// Fills a column that is empty in every row.
class Filling : public Work, OpenRegister {
public:
    explicit Filling(const QString& path) : OpenRegister(path) {}

    void prepare() override { fillRegister(m_model, markColumn + 2, RegisterFill::ClearAll); }
    void run() override { fillRegister(m_model, markColumn + 2, RegisterFill::Present); }
    qint64 finish() override { return pupilCount; }
};

class RawFilling : public Work {
public:
    explicit RawFilling(const QString& path)
        : m_database(path), m_name(sampleLessonName(lessonInTheMiddle + 2)) {}

    void prepare() override { m_database.execute("UPDATE REG_7A SET \"" + m_name + "\" = ''"); }
    void run() override {
        const RawStatement update =
            m_database.prepare("UPDATE REG_7A SET \"" + m_name + "\" = '/' WHERE ID = ?1");
        m_database.execute("BEGIN IMMEDIATE");
        for (int pupil = 1; pupil <= pupilCount; ++pupil) {
            sqlite3_bind_int(update.get(), 1, pupil);
            m_database.step(update);
            sqlite3_reset(update.get());
        }
        m_database.execute("COMMIT");
    }
    qint64 finish() override { return pupilCount; }

private:
    RawDatabase m_database;
    QByteArray m_name;
};

} // namespace

std::vector<Figure> classFigures(const QString& folder) {
    std::vector<Figure> figures;
    figures.push_back(sampleClassFigure<Reading, RawReading>("read a register", 3, 50, folder));
    figures.push_back(
        sampleClassFigure<Marking, RawMarking>("one mark to the disk", 3, 50, folder));
    figures.push_back(sampleClassFigure<Filling, RawFilling>("fill a column of 35", 3, 50, folder));
    return figures;
}
