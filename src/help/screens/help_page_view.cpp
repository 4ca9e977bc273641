#include "help/screens/help_page_view.h"

#include "controls/colours.h"
#include "help/screens/help_page_reader.h"

#include <QEvent>
#include <QImage>
#include <QResizeEvent>
#include <QTextBlock>
#include <QTextTable>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 16;
const QString suffix = u".md"_s;

/// A page's address in the view's history: "help:/backup.md".
QUrl addressOf(const HelpPage& page) {
    return QUrl(u"help:/"_s + page.name + suffix);
}

/// The last part of an address.
QString nameIn(const QUrl& address) {
    return address.path().section(u'/', -1);
}

} // namespace

HelpPageView::HelpPageView(const HelpBook& book, QWidget* parent)
    : QTextBrowser(parent), m_book(book) {
    showHelpPagesToAssistiveTools();
    setObjectName(u"HelpPage"_s);
    setAccessibleName(u"Help page"_s);
    document()->setDocumentMargin(margin);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // so that pictures are fitted once
    connect(this, &QTextBrowser::sourceChanged, this, &HelpPageView::noteSource);
}

void HelpPageView::showPage(int page) {
    if (page >= 0 && page < m_book.pages.size() && page != m_page)
        setSource(addressOf(m_book.pages[page]), QTextDocument::MarkdownResource);
}

void HelpPageView::noteSource(const QUrl& address) {
    m_page = m_book.pageNamed(nameIn(address).chopped(suffix.size()));
    dressLinks();
    dressTables();
    markWords();
    emit pageShown(m_page);
}

/// Underlined, and in the scheme's colour for them where that can be read.
void HelpPageView::dressLinks() {
    constexpr double readable = 4.5;
    const QColor background = palette().color(QPalette::Base);
    QColor colour = palette().color(QPalette::Link);
    if (contrast(colour, background) < readable)
        colour = textColourOn(background, QColor(130, 180, 255));
    QTextCharFormat look;
    look.setForeground(colour);
    look.setFontUnderline(true);
    QList<QTextFragment> links;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            if (part.fragment().charFormat().isAnchor())
                links += part.fragment();
        }
    }
    QTextCursor cursor(document());
    for (const QTextFragment& link : std::as_const(links)) {
        cursor.setPosition(link.position());
        cursor.setPosition(link.position() + link.length(), QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(look);
    }
}

void HelpPageView::dressTables() {
    constexpr qreal space = 8;
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        QTextTableFormat look = table->format();
        look.setBorderCollapse(true);
        look.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        look.setBorderBrush(palette().color(QPalette::Mid));
        look.setCellSpacing(0);
        look.setCellPadding(space / 2);
        look.setTopMargin(space);
        look.setBottomMargin(space);
        table->setFormat(look);
    }
}

QVariant HelpPageView::loadResource(int type, const QUrl& address) {
    const QString name = nameIn(address);
    if (type == QTextDocument::ImageResource) {
        m_pictures += address;
        return fittedPicture(name);
    }
    const int page = m_book.pageNamed(name.chopped(std::min(suffix.size(), name.size())));
    if (page < 0)
        return {};
    m_pictures.clear();
    return m_book.pages[page].markdown;
}

/// The picture as it is, or as wide as the view.
QImage HelpPageView::fittedPicture(const QString& name) const {
    QImage picture = QImage::fromData(m_book.pictures.value(name));
    const int room = viewport()->width() - 2 * margin;
    if (picture.width() <= room || room <= 0)
        return picture;
    const qreal ratio = devicePixelRatioF();
    picture = picture.scaledToWidth(qRound(room * ratio), Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void HelpPageView::resizeEvent(QResizeEvent* event) {
    for (const QUrl& address : std::as_const(m_pictures))
        document()->addResource(QTextDocument::ImageResource, address,
                                fittedPicture(nameIn(address)));
    if (event->size().width() != event->oldSize().width())
        document()->markContentsDirty(0, document()->characterCount());
    QTextBrowser::resizeEvent(event);
}

/// The colours of links are set in the text as it is read.
void HelpPageView::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_page >= 0)
        reload();
}

void HelpPageView::setMarkedWords(const QString& words) {
    m_markedWords = words;
    markWords();
}

void HelpPageView::markWords() {
    QList<QTextEdit::ExtraSelection> selections;
    for (const HelpMark& mark : helpMarks(document()->toPlainText(), m_markedWords)) {
        QTextEdit::ExtraSelection selection;
        selection.cursor = QTextCursor(document());
        selection.cursor.setPosition(static_cast<int>(mark.start));
        selection.cursor.setPosition(static_cast<int>(mark.start + mark.length),
                                     QTextCursor::KeepAnchor);
        selection.format.setBackground(QColor(255, 225, 110));
        selection.format.setForeground(Qt::black);
        selections += selection;
    }
    setExtraSelections(selections);
}

void HelpPageView::zoom(int steps) {
    constexpr int smallest = -4;
    constexpr int largest = 16;
    const int wanted = std::clamp(m_zoom + steps, smallest, largest);
    zoomIn(wanted - m_zoom);
    m_zoom = wanted;
}
