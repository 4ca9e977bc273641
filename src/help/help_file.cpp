#include "help/help_file.h"

#include "core/whole_file.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView magic = "ORVAHLP1";
constexpr auto algorithm = QCryptographicHash::Sha256;

QCborMap toMap(const HelpPage& page) {
    return {{u"name"_s, page.name},
            {u"number"_s, page.number},
            {u"title"_s, page.title},
            {u"keywords"_s, QCborArray::fromStringList(page.keywords)},
            {u"contexts"_s, QCborArray::fromStringList(page.contexts)},
            {u"markdown"_s, page.markdown},
            {u"text"_s, page.text}};
}

QStringList toTexts(const QCborValue& value) {
    QStringList texts;
    for (const auto& text : value.toArray())
        texts += text.toString();
    return texts;
}

HelpPage toPage(const QCborValue& map) {
    return {.name = map[u"name"_s].toString(),
            .number = static_cast<int>(map[u"number"_s].toInteger()),
            .title = map[u"title"_s].toString(),
            .keywords = toTexts(map[u"keywords"_s]),
            .contexts = toTexts(map[u"contexts"_s]),
            .markdown = map[u"markdown"_s].toString(),
            .text = map[u"text"_s].toString()};
}

QCborMap toMap(const HelpChapter& chapter) {
    QCborArray pages;
    for (const int page : chapter.pages)
        pages.append(page);
    return {{u"title"_s, chapter.title}, {u"pages"_s, pages}};
}

HelpChapter toChapter(const QCborValue& map, qsizetype pageCount) {
    HelpChapter chapter{map[u"title"_s].toString(), {}};
    for (const auto& page : map[u"pages"_s].toArray()) {
        if (page.toInteger(-1) >= 0 && page.toInteger() < pageCount)
            chapter.pages += static_cast<int>(page.toInteger());
    }
    return chapter;
}

QByteArray toBytes(const HelpBook& book) {
    QCborArray pages;
    for (const HelpPage& page : book.pages)
        pages.append(toMap(page));
    QCborArray chapters;
    for (const HelpChapter& chapter : book.chapters)
        chapters.append(toMap(chapter));
    QCborMap pictures;
    for (auto picture = book.pictures.begin(); picture != book.pictures.end(); ++picture)
        pictures.insert(picture.key(), picture.value());
    return QCborValue(
               QCborMap{{u"pages"_s, pages}, {u"chapters"_s, chapters}, {u"pictures"_s, pictures}})
        .toCbor();
}

HelpBook toBook(const QByteArray& bytes) {
    const QCborValue map = QCborValue::fromCbor(bytes);
    HelpBook book;
    for (const auto& page : map[u"pages"_s].toArray())
        book.pages += toPage(page);
    for (const auto& chapter : map[u"chapters"_s].toArray())
        book.chapters += toChapter(chapter, book.pages.size());
    for (const auto& [name, picture] : map[u"pictures"_s].toMap())
        book.pictures.insert(name.toString(), picture.toByteArray());
    return book;
}

/// Puts a copy of the stock at the path, whole or not at all.
void copyStock(const QString& stock, const QString& path) {
    QFile source(stock);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile copy(path);
    if (source.open(QIODevice::ReadOnly) && copy.open(QIODevice::WriteOnly) &&
        copy.write(source.readAll()) == source.size())
        commitWhole(copy);
}

} // namespace

bool writeHelpFile(const HelpBook& book, const QString& path) {
    const QByteArray content = toBytes(book);
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) &&
           file.write(magic.toByteArray() + QCryptographicHash::hash(content, algorithm) +
                      content) > 0 &&
           commitWhole(file);
}

ReadHelp readHelpFile(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return {{}, u"The help file is missing:\n\n%1\n\nPlease install ORVA again."_s.arg(path)};
    if (!file.open(QIODevice::ReadOnly))
        return {{}, u"The help file can't be read:\n\n%1"_s.arg(path)};
    const QByteArray bytes = file.readAll();
    const qsizetype head = magic.size() + QCryptographicHash::hashLength(algorithm);
    const QByteArray content = bytes.mid(head);
    if (!bytes.startsWith(magic) || bytes.mid(magic.size(), head - magic.size()) !=
                                        QCryptographicHash::hash(content, algorithm))
        return {{}, u"The help file is damaged:\n\n%1\n\nPlease install ORVA again."_s.arg(path)};
    return {toBook(content), {}};
}

QString stockHelpFile() {
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../share/orva/ORVA.hlp"_s);
}

ReadHelp openHelpFile(const QString& path, const QString& stock) {
    const QFileInfo original(stock);
    const QFileInfo copy(path);
    if (original.exists() && (!copy.exists() || copy.lastModified() < original.lastModified()))
        copyStock(stock, path);
    ReadHelp read = readHelpFile(path);
    if (read.book || !original.exists())
        return read;
    copyStock(stock, path);
    return readHelpFile(path);
}
