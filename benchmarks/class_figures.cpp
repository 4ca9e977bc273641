// Work on a class: its register read, a mark typed, a column filled.

#include "figures.h"
#include "raw_library.h"

#include "classes/class_tables.h"
#include "classes/class_views.h"
#include "classes/register_columns.h"
#include "classes/register_marking.h"
#include "core/console_prompts.h"
#include "store/engine/engine.h"
#include "store/schema.h"
#include "store/table_names.h"

#include <array>

namespace {

constexpr int pupilCount = 35;
constexpr int lessonCount = 250;
/// A lesson in the middle of the year, the first of its day.
constexpr int lessonInTheMiddle = 125;
constexpr int markColumn = PupilSheet::FirstOwnColumn + lessonInTheMiddle - 1;

const QString classCode = QStringLiteral("7A");

/// Two lessons a day, one straight after the other, from Monday to Friday.
QList<Lesson> lessons() {
    QList<Lesson> all;
    for (QDate date(2024, 9, 2); all.size() < lessonCount; date = date.addDays(1)) {
        if (date.dayOfWeek() <= DaysOfTimetable)
            all << Lesson{date, u'A'} << Lesson{date, u'A'};
    }
    return all;
}

QByteArray lessonName(int number) {
    return registerColumnName({lessons()[number - 1].date, number}).toUtf8();
}

/// A class in the spring: every lesson up to the middle is marked.
void createClass(const QString& path) {
    const dao::DBEngine engine;
    const dao::Database database = engine.CreateDatabase(path, dao::GeneralLocale.toString());
    dao::Transaction transaction(database);
    database.TableDefs().Append(schemaTableDef(Table::Classcodes));
    dao::Recordset classcodes = database.OpenRecordset(ClasscodesTable);
    addClassRecord(classcodes, classCode, {}, WhiteClassColour);
    createPupilTable(database, classCode);
    createRegisterAndMarks(database, classCode, lessons());
    dao::Recordset pupils = database.OpenRecordset(classTable(classCode));
    dao::Recordset marks = database.OpenRecordset(registerTable(classCode));
    for (int pupil = 1; pupil <= pupilCount; ++pupil) {
        pupils.AddNew();
        pupils.SetCollect(u"Surname", QStringLiteral("Featherstone%1").arg(pupil * 13 % 35));
        pupils.SetCollect(u"Firstname", QStringLiteral("Ann"));
        pupils.SetCollect(u"Tutor", QStringLiteral("7T"));
        pupils.Update();
        marks.AddNew();
        marks.SetCollect(u"ID", pupil);
        for (int lesson = 1; lesson < lessonInTheMiddle; ++lesson)
            marks.SetCollect(lesson,
                             (pupil + lesson) % 9 ? QStringLiteral("/") : QStringLiteral("O"));
        marks.Update();
    }
    transaction.commit();
}

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
                  m_marks % 2 ? QStringLiteral("/") : QStringLiteral("O"));
    }
    qint64 finish() override { return 1; }

private:
    int m_marks = 0;
};

class RawMarking : public Work {
public:
    explicit RawMarking(const QString& path)
        : m_database(path)
        , m_update(m_database.prepare("UPDATE REG_7A SET \"" + lessonName(lessonInTheMiddle) +
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
        : m_database(path), m_name(lessonName(lessonInTheMiddle + 2)) {}

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

/// A figure whose sides have a file each, since an open year is one connection's.
template<typename Value, typename Floor>
Figure figureOf(const char* name, double bound, int rounds, const QString& folder) {
    std::array<QString, 2> files;
    for (size_t side = 0; side < files.size(); ++side) {
        files[side] = QStringLiteral("%1/%2-%3.mdb").arg(folder, QLatin1String(name)).arg(side);
        createClass(files[side]);
    }
    return {QLatin1String(name), bound, rounds, std::make_unique<Value>(files[0]),
            std::make_unique<Floor>(files[1])};
}

} // namespace

std::vector<Figure> classFigures(const QString& folder) {
    std::vector<Figure> figures;
    figures.push_back(figureOf<Reading, RawReading>("read a register", 3, 50, folder));
    figures.push_back(figureOf<Marking, RawMarking>("one mark to the disk", 3, 50, folder));
    figures.push_back(figureOf<Filling, RawFilling>("fill a column of 35", 3, 50, folder));
    return figures;
}
