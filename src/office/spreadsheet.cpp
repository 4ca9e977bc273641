#include "office/spreadsheet.h"

#include "core/prompts.h"
#include "office/delimited_text.h"
#include "office/ods_reader.h"
#include "office/sheet_cells.h"
#include "office/xls_reader.h"
#include "office/xlsx_reader.h"
#include "office/zip_archive.h"
#include "store/engine/confined_reader.h"
#include "store/engine/error.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 LargestWorkbook = qint64(64) * 1024 * 1024; // bytes
constexpr int LettersOfColumns = 26;

enum class SheetFormat { Xls, Zipped, Text };

/// Zipped workbooks are known by their first bytes, whatever their name ends in.
SheetFormat formatOf(const QString& path) {
    QFile file(path);
    const bool isZipped = file.open(QIODevice::ReadOnly) && file.read(4) == "PK\x03\x04";
    if (isZipped)
        return SheetFormat::Zipped;
    const QString ending = QFileInfo(path).suffix().toLower();
    return ending == u"csv" || ending == u"txt" ? SheetFormat::Text : SheetFormat::Xls;
}

bool loadReader(SheetFormat format) {
    return format == SheetFormat::Text ||
           (format == SheetFormat::Xls ? loadXlsReader() : loadZipReader());
}

/// In the child process. No bytes for what is no spreadsheet.
QByteArray packFirstSheet(const QString& path, SheetFormat format) {
    SheetCells cells;
    if (format == SheetFormat::Xls)
        return readXls(path, cells) ? cells.packed() : QByteArray();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    const bool isRead = format == SheetFormat::Text
                            ? readDelimitedText(bytes, cells)
                            : readXlsx(bytes, cells) || readOds(bytes, cells);
    return isRead ? cells.packed() : QByteArray();
}

QString textOfCell(const ReadCell& cell, const QLocale& locale) {
    const auto date = [&] {
        const QDate day = QDate::fromString(cell.text.left(10), Qt::ISODate);
        return day.isValid() ? locale.toString(day, QLocale::ShortFormat) : cell.text;
    };
    const auto time = [&](const QString& text) {
        const QTime moment = QTime::fromString(text, Qt::ISODate);
        return moment.isValid() ? locale.toString(moment, QLocale::ShortFormat) : text;
    };
    switch (cell.kind) {
    case CellKind::Date:
        return date();
    case CellKind::Time:
        return time(cell.text);
    case CellKind::DateTime:
        return date() + u' ' + time(cell.text.section(u'T', 1));
    case CellKind::Text:
        break;
    }
    return cell.text;
}

} // namespace

std::optional<Spreadsheet> Spreadsheet::read(const QString& path) {
    const QFileInfo file(path);
    const SheetFormat format = formatOf(path);
    if (!file.isFile() || file.size() > LargestWorkbook || !loadReader(format))
        return std::nullopt;
    try {
        const auto bytes = dao::readConfined(dao::boundsForInput(file.size()),
                                             [&] { return packFirstSheet(path, format); });
        return bytes ? unpack(*bytes) : std::nullopt;
    } catch (const dao::EngineError&) {
        return std::nullopt;
    }
}

std::optional<Spreadsheet> Spreadsheet::unpack(const QByteArray& bytes) {
    const auto rows = SheetCells::unpacked(bytes);
    if (!rows || bytes.isEmpty())
        return std::nullopt;
    const QLocale locale;
    Spreadsheet sheet;
    for (const QList<ReadCell>& row : *rows) {
        QStringList texts;
        texts.reserve(row.size());
        for (const ReadCell& cell : row)
            texts += textOfCell(cell, locale);
        sheet.m_columnCount = std::max(sheet.m_columnCount, static_cast<int>(texts.size()));
        sheet.m_rows += texts;
    }
    return sheet;
}

QString columnLetters(int column) {
    QString letters;
    for (int rest = column; rest >= 0; rest = rest / LettersOfColumns - 1)
        letters.prepend(QChar(u'A' + rest % LettersOfColumns));
    return letters;
}

int columnOfLetters(QStringView letters) {
    int column = 0;
    for (const QChar letter : letters) {
        const QChar capital = letter.toUpper();
        if (capital < u'A' || capital > u'Z' || column > SheetCells::LargestColumn)
            return -1;
        column = column * LettersOfColumns + (capital.unicode() - u'A' + 1);
    }
    return column <= SheetCells::LargestColumn ? column - 1 : -1;
}

void showCantOpen(Prompts& prompts, const QString& file) {
    prompts.PlainBox(u"Can't open "_s + file, OkButton | WarningIcon, u"Import Error"_s);
}
