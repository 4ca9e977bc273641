#include "help/help_builder.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString suffix = u".md"_s;

struct Source {
    HelpPage page;
    QString window; ///< empty for a page that always stands
};

/// What a page's text refers to.
struct References {
    QStringList links;
    QStringList pictures;
};

class Builder {
public:
    Builder(const QString& sources, const QString& pictures, QStringList windows)
        : m_sources(sources), m_pictures(pictures), m_windows(std::move(windows)) {}

    BuiltHelp build();

private:
    void readPages();
    std::optional<QString> readFile(const QString& path, const QString& name);
    void readHead(Source& source, const QString& head);
    void setHeadLine(Source& source, const QString& key, const QString& value);
    void readContents();
    void addPage(const QString& name);
    void checkLinks(HelpPage& page);
    void removeDeadLinks(HelpPage& page) const;
    void addPictures(HelpPage& page);
    void addPicture(const HelpPage& page, const QString& name);
    void findTwins();
    bool isLeftOut(const Source& source) const;
    void fault(const QString& where, const QString& what) {
        m_built.faults += where + u": "_s + what;
    }

    QDir m_sources;
    QDir m_pictures;
    QStringList m_windows;
    QHash<QString, Source> m_pages;
    QStringList m_placed; ///< the pages that the contents have named
    BuiltHelp m_built;
};

QStringList listOf(const QString& value) {
    QStringList entries;
    for (const QString& entry : value.split(u',', Qt::SkipEmptyParts))
        entries += entry.trimmed();
    return entries;
}

References readText(HelpPage& page) {
    QTextDocument document;
    document.setMarkdown(page.markdown);
    const QString text = document.toPlainText().remove(QChar::ObjectReplacementCharacter);
    page.text = text.section(u'\n', 1); // without the title
    References references;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.isImageFormat())
                references.pictures += format.toImageFormat().name();
            else if (format.isAnchor())
                references.links += format.anchorHref();
        }
    }
    references.links.removeDuplicates();
    return references;
}

BuiltHelp Builder::build() {
    readPages();
    readContents();
    for (Source& source : m_pages)
        checkLinks(source.page);
    for (HelpPage& page : m_built.book.pages) {
        removeDeadLinks(page);
        addPictures(page);
    }
    findTwins();
    return m_built;
}

std::optional<QString> Builder::readFile(const QString& path, const QString& name) {
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        return QString::fromUtf8(file.readAll());
    fault(name, u"can't be read"_s);
    return std::nullopt;
}

void Builder::readPages() {
    for (const QString& file : m_sources.entryList({u'*' + suffix}, QDir::Files)) {
        Source source;
        source.page.name = file.chopped(suffix.size());
        const auto content = readFile(m_sources.filePath(file), source.page.name);
        if (!content)
            continue;
        const qsizetype end = content->indexOf(u"\n\n");
        readHead(source, content->left(end));
        source.page.markdown = u"# "_s + source.page.title + content->mid(end);
        m_pages.insert(source.page.name, source);
    }
}

/// The lines "key: value" above a page's first blank line.
void Builder::readHead(Source& source, const QString& head) {
    for (const QString& line : head.split(u'\n')) {
        const qsizetype colon = line.indexOf(u':');
        setHeadLine(source, line.left(colon), line.mid(colon + 1).trimmed());
    }
    if (source.page.title.isEmpty())
        fault(source.page.name, u"has no title"_s);
    if (source.page.number <= 0)
        fault(source.page.name, u"has no number"_s);
}

void Builder::setHeadLine(Source& source, const QString& key, const QString& value) {
    if (key == u"title")
        source.page.title = value;
    else if (key == u"number")
        source.page.number = value.toInt();
    else if (key == u"window")
        source.window = value;
    else if (key == u"keywords")
        source.page.keywords = listOf(value);
    else if (key == u"contexts")
        source.page.contexts = listOf(value);
    else
        fault(source.page.name, u"has the unknown line \"%1\" in its head"_s.arg(key));
}

/// A chapter's title stands at the start of a line, its pages below it are indented.
void Builder::readContents() {
    const QString name = u"contents.txt"_s;
    const auto content = readFile(m_sources.filePath(name), name);
    for (const QString& line : content.value_or(QString()).split(u'\n', Qt::SkipEmptyParts)) {
        if (!line.at(0).isSpace())
            m_built.book.chapters.append({line.trimmed(), {}});
        else if (!m_built.book.chapters.isEmpty())
            addPage(line.trimmed());
    }
    m_built.book.chapters.removeIf(
        [](const HelpChapter& chapter) { return chapter.pages.isEmpty(); });
    for (const QString& page : m_pages.keys()) {
        if (!m_placed.contains(page))
            fault(page, u"is not in the contents"_s);
    }
}

void Builder::addPage(const QString& name) {
    const auto source = m_pages.constFind(name);
    if (source == m_pages.constEnd())
        return fault(name, u"is in the contents and has no page"_s);
    if (m_placed.contains(name))
        return fault(name, u"is in the contents twice"_s);
    m_placed += name;
    if (isLeftOut(*source))
        return;
    m_built.book.chapters.last().pages += static_cast<int>(m_built.book.pages.size());
    m_built.book.pages += source->page;
}

bool Builder::isLeftOut(const Source& source) const {
    return !source.window.isEmpty() && !m_windows.contains(source.window);
}

void Builder::checkLinks(HelpPage& page) {
    for (const QString& link : readText(page).links) {
        if (!link.endsWith(suffix) || !m_pages.contains(link.chopped(suffix.size())))
            fault(page.name, u"has a link to \"%1\", which is no page"_s.arg(link));
    }
}

/// A link to a page that is left out becomes the text that it had.
void Builder::removeDeadLinks(HelpPage& page) const {
    for (const Source& source : m_pages) {
        if (!isLeftOut(source))
            continue;
        const QString address = QRegularExpression::escape(source.page.name + suffix);
        page.markdown.replace(QRegularExpression(u"\\[([^\\]]*)\\]\\(%1\\)"_s.arg(address)),
                              u"\\1"_s);
    }
}

void Builder::addPictures(HelpPage& page) {
    for (const QString& picture : readText(page).pictures)
        addPicture(page, picture);
}

void Builder::addPicture(const HelpPage& page, const QString& name) {
    QFile file(m_pictures.filePath(name));
    if (!file.open(QIODevice::ReadOnly))
        return fault(page.name, u"shows \"%1\", which is no picture"_s.arg(name));
    m_built.book.pictures.insert(name, file.readAll());
}

/// Numbers and contexts that two pages claim.
void Builder::findTwins() {
    QHash<QString, QString> owners;
    const auto claim = [&](const HelpPage& page, const QString& what) {
        if (owners.contains(what))
            fault(page.name, u"claims %1, which is of \"%2\""_s.arg(what, owners.value(what)));
        owners.insert(what, page.name);
    };
    for (const QString& name : std::as_const(m_placed)) {
        const HelpPage& page = m_pages[name].page;
        claim(page, u"number %1"_s.arg(page.number));
        for (const QString& context : page.contexts)
            claim(page, context);
    }
}

} // namespace

BuiltHelp buildHelp(const QString& sources, const QString& pictures, const QStringList& windows) {
    return Builder(sources, pictures, windows).build();
}
