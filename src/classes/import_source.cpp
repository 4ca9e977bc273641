#include "classes/import_source.h"

#include "core/session.h"
#include "store/engine/error.h"
#include "store/table_names.h"

#include <QFileInfo>

#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString endingOf(const QString& file) {
    return QFileInfo(file).suffix().toLower();
}

} // namespace

ImportSheet::ImportSheet(Spreadsheet sheet, const SpreadsheetChoice& choice)
    : m_sheet(std::move(sheet)), m_firstRow(choice.row - 1) {
    for (const QString& letters : choice.columns)
        m_columns += columnOfLetters(letters);
}

int ImportSheet::endOfList(int row) const {
    int end = row;
    while (!cell(end, 0).isEmpty())
        ++end;
    return end;
}

bool tryImporting(Prompts& prompts, const FailureBox& failure, const std::function<void()>& work) {
    try {
        return tryTelling(prompts, failure, work);
    } catch (const std::bad_alloc&) {
        tellFailure(prompts, failure,
                    dao::EngineError(dao::CannotOpenFile, u"There is not enough memory."_s));
        return false;
    }
}

QStringList columnsUpTo(QStringView last) {
    QStringList columns;
    for (int column = 0; column <= columnOfLetters(last); ++column)
        columns += columnLetters(column);
    return columns;
}

bool isSheetFile(const QString& file) {
    static const QStringList endings{u"xls"_s, u"xlsx"_s, u"ods"_s, u"csv"_s, u"txt"_s};
    return endings.contains(endingOf(file));
}

bool isYearFile(const QString& file) {
    return endingOf(file) == u"mdb";
}

QString askImportFile(Session& session, const QString& title, const FileFilter& first) {
    return session.GetSeams().prompts.OpenFileDialog(
        title,
        {first,
         {u"Excel Workbook"_s, u"*.xlsx"_s},
         {u"OpenDocument Spreadsheet"_s, u"*.ods"_s},
         {u"Text file, separated by commas, semicolons or tabs"_s, u"*.csv;*.txt"_s}},
        session.FolderDefaults[OpenFolder].folder, ExistingFileFlags, false);
}

std::optional<ImportSheet> openImportSheet(const SheetSource& source, Prompts& prompts) {
    const std::optional<Spreadsheet> sheet = Spreadsheet::read(source.file);
    if (sheet)
        return ImportSheet(*sheet, source.choice);
    showCantOpen(prompts, source.file);
    return std::nullopt;
}

QStringList classesOf(const dao::Database& source) {
    QStringList classes;
    for (const QString& table : source.TableDefs().names()) {
        if (const std::optional<QString> code = classOfClassTable(table))
            classes += *code;
    }
    return classes;
}

std::optional<QString> askClassOf(const dao::Database& source, const QString& text,
                                  Prompts& prompts) {
    OneItemRequest request;
    request.title = u"Classes in "_s + QFileInfo(source.Name()).fileName();
    request.text = text;
    request.items = classesOf(source);
    if (request.items.isEmpty()) {
        prompts.PlainBox(u"There are no classes in "_s + source.Name(), OkButton | WarningIcon,
                         u"Import Error"_s);
        return std::nullopt;
    }
    const std::optional<int> item = prompts.ReturnString(request);
    return item ? std::optional(request.items[*item]) : std::nullopt;
}
