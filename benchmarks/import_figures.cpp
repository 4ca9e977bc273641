// A sheet of 40 pieces of work of 35 pupils taken into a class, beside the raw libraries: all cells
// read, and the columns made and filled in one transaction.

#include "figures.h"
#include "raw_library.h"
#include "sample_class.h"

#include "classes/grade_import.h"
#include "core/console_prompts.h"
#include "store/engine/engine.h"

#include <QFile>

#include <freexl.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int namesInSheet = 2;
constexpr int columnsTaken = 24; ///< titles are looked for up to column Z

const QString workbookPath = QStringLiteral(ORVA_SPREADSHEETS "/grades.xls");

/// Each run begins with the class as it was made.
class ClassToFill : public Work {
public:
    explicit ClassToFill(const QString& path) : m_path(path), m_kept(path + u".kept"_s) {
        QFile::copy(m_path, m_kept);
    }
    void prepare() override {
        QFile::remove(m_path);
        QFile::copy(m_kept, m_path);
    }
    /// The grades that have come in.
    qint64 finish() override {
        RawDatabase database(m_path);
        return database.firstInteger("SELECT COUNT(\"Work 1\") * 2 + SUM(\"Work 24\" <> '') FROM "
                                     "Marks_7A");
    }

protected:
    const QString m_path;

private:
    const QString m_kept;
};

class SheetImport : public ClassToFill {
public:
    using ClassToFill::ClassToFill;

    void prepare() override {
        ClassToFill::prepare();
        m_database = m_engine.OpenDatabase(m_path);
    }
    void run() override {
        if (!ImportExcelSheet(m_database, SampleClassCode, {workbookPath, usualExcelSheetChoice()},
                              m_prompts))
            throw std::runtime_error("The sheet has not come in.");
    }
    qint64 finish() override {
        m_database.Close();
        return ClassToFill::finish();
    }

private:
    dao::DBEngine m_engine;
    dao::Database m_database;
    ConsolePrompts m_prompts;
};

using SheetRows = std::vector<std::vector<QByteArray>>;

SheetRows readSheet() {
    const void* handle = nullptr;
    unsigned rows = 0;
    unsigned short columns = 0;
    if (freexl_open(QFile::encodeName(workbookPath).constData(), &handle) != FREEXL_OK ||
        freexl_select_active_worksheet(handle, 0) != FREEXL_OK ||
        freexl_worksheet_dimensions(handle, &rows, &columns) != FREEXL_OK)
        throw std::runtime_error("The sheet can't be read.");
    SheetRows cells(rows, std::vector<QByteArray>(columns));
    for (unsigned row = 0; row < rows; ++row) {
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue cell;
            freexl_get_cell_value(handle, row, column, &cell);
            if (cell.type == FREEXL_CELL_INT)
                cells[row][column] = QByteArray::number(cell.value.int_value);
            else if (cell.type == FREEXL_CELL_DOUBLE)
                cells[row][column] = QByteArray::number(cell.value.double_value);
            else if (cell.type != FREEXL_CELL_NULL)
                cells[row][column] = cell.value.text_value;
        }
    }
    freexl_close(handle);
    return cells;
}

class RawSheetImport : public ClassToFill {
public:
    using ClassToFill::ClassToFill;

    void prepare() override {
        ClassToFill::prepare();
        m_database = std::make_unique<RawDatabase>(m_path);
    }
    void run() override {
        const SheetRows cells = readSheet();
        m_database->execute("BEGIN IMMEDIATE");
        QByteArray columns;
        for (int column = namesInSheet; column < namesInSheet + columnsTaken; ++column) {
            const QByteArray title = '"' + cells[0][static_cast<size_t>(column)] + '"';
            m_database->execute("ALTER TABLE Marks_7A ADD COLUMN " + title +
                                " VARCHAR(255) CHECK (length(" + title + ") <= 255)");
            columns += (columns.isEmpty() ? "" : ", ") + title + " = ?";
        }
        const RawStatement update =
            m_database->prepare("UPDATE Marks_7A SET " + columns + " WHERE ID = ?");
        for (size_t row = 1; row < cells.size(); ++row) {
            for (int i = 0; i < columnsTaken; ++i) {
                const QByteArray& cell = cells[row][static_cast<size_t>(namesInSheet + i)];
                sqlite3_bind_text(update.get(), i + 1, cell.constData(),
                                  static_cast<int>(cell.size()), SQLITE_STATIC);
            }
            sqlite3_bind_int(update.get(), columnsTaken + 1, static_cast<int>(row));
            m_database->step(update);
            sqlite3_reset(update.get());
        }
        m_database->execute("COMMIT");
    }
    qint64 finish() override {
        m_database.reset();
        return ClassToFill::finish();
    }

private:
    std::unique_ptr<RawDatabase> m_database;
};

} // namespace

std::vector<Figure> importFigures(const QString& folder) {
    std::vector<Figure> figures;
    figures.push_back(
        sampleClassFigure<SheetImport, RawSheetImport>("grades from a sheet", 2, 50, folder));
    return figures;
}
