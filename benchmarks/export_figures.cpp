// A class's register left as a spreadsheet, beside the same cells by the library for the other
// format.

#include "figures.h"
#include "sample_class.h"

#include "classes/class_exports.h"
#include "classes/class_views.h"
#include "classes/pupil_sheet.h"
#include "core/console_prompts.h"
#include "core/silent_seams.h"
#include "core/system_clock.h"
#include "store/engine/engine.h"
#include "store/schema.h"
#include "store/table_names.h"

#include <QFile>

#include <xlsxwriter.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// The register of a year with a single term, as its window has it.
class RegisterToLeave : public Work {
public:
    explicit RegisterToLeave(const QString& path) : m_database(m_engine.OpenDatabase(path)) {
        m_database.TableDefs().Append(schemaTableDef(Table::TermDates));
        dao::Recordset terms = m_database.OpenRecordset(TermDatesTable);
        for (const int year : {2024, 2025}) {
            terms.AddNew();
            terms.SetCollect(u"Year", year);
            terms.SetCollect(u"Month", 9);
            terms.SetCollect(u"Day", 1);
            terms.Update();
        }
        terms.Close();
        m_records = PupilSheet(m_database, registerSource(SampleClassCode, {}));
    }
    qint64 finish() override {
        if (QFile file(m_target); !file.exists() || !file.remove())
            throw std::runtime_error("No workbook was written.");
        return qint64(m_records.rowCount()) * m_records.columnCount();
    }

protected:
    void setTarget(const QString& path) { m_target = path; }
    const QString& target() const { return m_target; }
    const PupilSheet& records() const { return m_records; }
    const dao::Database& database() const { return m_database; }

private:
    dao::DBEngine m_engine;
    dao::Database m_database;
    PupilSheet m_records;
    QString m_target;
};

class RegisterExported : public RegisterToLeave {
public:
    explicit RegisterExported(const QString& path) : RegisterToLeave(path) {
        setTarget(path + u".xls"_s);
    }
    void run() override {
        exportRegister(database(), records(), SampleClassCode,
                       {target(), {m_prompts, m_progress, m_shell, m_clock}});
    }

private:
    ConsolePrompts m_prompts;
    SilentProgress m_progress;
    AbsentShell m_shell;
    SystemClock m_clock;
};

class CellsByTheLibrary : public RegisterToLeave {
public:
    explicit CellsByTheLibrary(const QString& path) : RegisterToLeave(path) {
        setTarget(path + u".xlsx"_s);
    }
    void run() override {
        lxw_workbook* workbook = workbook_new(target().toUtf8().constData());
        lxw_worksheet* sheet = workbook_add_worksheet(workbook, "Term(1)");
        lxw_format* format = workbook_add_format(workbook);
        format_set_border(format, LXW_BORDER_THIN);
        for (int column = 0; column < records().columnCount(); ++column) {
            write(sheet, 0, column, records().columns()[column].left(2), format);
            for (int row = 0; row < records().rowCount(); ++row)
                write(sheet, row + 1, column, records().text(row, column), format);
        }
        workbook_close(workbook);
    }

private:
    static void write(lxw_worksheet* sheet, int row, int column, const QString& text,
                      lxw_format* format) {
        const auto atRow = static_cast<lxw_row_t>(row);
        const auto atColumn = static_cast<lxw_col_t>(column);
        if (text.isEmpty())
            worksheet_write_blank(sheet, atRow, atColumn, format);
        else
            worksheet_write_string(sheet, atRow, atColumn, text.toUtf8().constData(), format);
    }
};

} // namespace

std::vector<Figure> exportFigures(const QString& folder) {
    constexpr int rounds = 20;
    std::vector<Figure> figures;
    figures.push_back(sampleClassFigure<RegisterExported, CellsByTheLibrary>(
        "register of 35 by 250 to .xls", 1, rounds, folder));
    return figures;
}
