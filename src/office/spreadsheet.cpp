#include "office/spreadsheet.h"

#include "core/prompts.h"
#include "office/compound_file.h"
#include "office/delimited_text.h"
#include "office/ods_reader.h"
#include "office/older_xls_reader.h"
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

#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Megabyte = qint64(1024) * 1024;
constexpr qint64 LargestWorkbook = 64 * Megabyte; // bytes
constexpr int LettersOfColumns = 26;

enum class SheetFormat { Xls, OlderXls, Zipped, Text };

/// Its first bytes say what a file is, whatever its name ends in: school systems give texts the
/// ending .xls too.
SheetFormat formatOf(const QString& path) {
    QFile file(path);
    const QByteArray start = file.open(QIODevice::ReadOnly) ? file.read(8) : QByteArray();
    if (start.startsWith("PK\x03\x04"))
        return SheetFormat::Zipped;
    if (start == "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" || start.startsWith("\x09\x08"))
        return SheetFormat::Xls;
    for (const char version : {'\0', '\2', '\4'}) {
        if (start.startsWith(QByteArray("\x09") + version))
            return SheetFormat::OlderXls;
    }
    return SheetFormat::Text;
}

bool loadReader(SheetFormat format) {
    switch (format) {
    case SheetFormat::OlderXls:
        return loadOlderXlsReader();
    case SheetFormat::Zipped:
        return loadZipReader();
    case SheetFormat::Xls:
    case SheetFormat::Text:
        break;
    }
    return true;
}

QByteArray bytesOfFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool readFirstSheet(const QString& path, SheetFormat format, SheetCells& cells) {
    if (format == SheetFormat::OlderXls)
        return readOlderXls(path, cells);
    const QByteArray bytes = bytesOfFile(path);
    switch (format) {
    case SheetFormat::Xls:
        return readXls(bytes, cells);
    case SheetFormat::Zipped:
        return readXlsx(bytes, cells) || readOds(bytes, cells);
    default:
        return readDelimitedText(bytes, cells);
    }
}

/// In the child process. No bytes for what is no spreadsheet.
QByteArray packFirstSheet(const QString& path, SheetFormat format) {
    SheetCells cells;
    const bool isRead = readFirstSheet(path, format, cells);
    return isRead ? cells.packed() : QByteArray();
}

/// In the child process too: whether a password is what is missing.
bool isEncrypted(const QString& path, SheetFormat format) {
    const QByteArray bytes = bytesOfFile(path);
    if (format == SheetFormat::Zipped)
        return readZipPart(bytes, u"META-INF/manifest.xml"_s)
            .value_or(QByteArray())
            .contains("encryption-data");
    return isXlsEncrypted(bytes) || !CompoundFile(bytes).stream(u"EncryptedPackage").isEmpty();
}

/// What a child process makes of a file; none where it came to grief.
std::optional<QByteArray> inChild(const QString& path, const std::function<QByteArray()>& read) {
    try {
        return dao::readConfined(dao::boundsForInput(QFileInfo(path).size()), read);
    } catch (const dao::EngineError&) {
        return std::nullopt;
    }
}

bool isTrueInChild(const QString& path, const std::function<bool()>& ask) {
    const auto answer = inChild(path, [&] { return ask() ? "1"_ba : QByteArray(); });
    return answer && !answer->isEmpty();
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
    const auto bytes = inChild(path, [&] { return packFirstSheet(path, format); });
    return bytes ? unpack(*bytes) : std::nullopt;
}

QString Spreadsheet::hindrance(const QString& path) {
    const QFileInfo file(path);
    const SheetFormat format = formatOf(path);
    if (!file.isFile())
        return {};
    if (!file.isReadable())
        return u"You are not allowed to read it."_s;
    if (file.size() == 0)
        return u"It is empty."_s;
    if (file.size() > LargestWorkbook)
        return u"It is larger than %1 megabytes."_s.arg(LargestWorkbook / Megabyte);
    if (!loadReader(format))
        return u"The library that reads such files is not installed."_s;
    const bool isText = format == SheetFormat::Text;
    if (isText && isTrueInChild(path, [&] { return isMarkup(decodedText(bytesOfFile(path))); }))
        return u"It is a web page, whatever its name says. Please open it in your spreadsheet "
               "program and save it as a spreadsheet."_s;
    if (!isText && isTrueInChild(path, [&] { return isEncrypted(path, format); }))
        return u"It is protected by a password. Please save it without one."_s;
    return {};
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
    const QString hindrance = Spreadsheet::hindrance(file);
    prompts.PlainBox(u"Can't open "_s + file +
                         (hindrance.isEmpty() ? QString() : u"\n\n"_s + hindrance),
                     OkButton | WarningIcon, u"Import Error"_s);
}
