#include "help/screens/help_panes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int PageRole = Qt::UserRole;       ///< place in the book
constexpr int MarkupRole = Qt::UserRole + 1; ///< what the delegate draws

/// The title of a hit above its excerpt, the words that were found in bold.
QString markupOf(const QString& title, const HelpHit& hit) {
    QString excerpt;
    qsizetype done = 0;
    for (const HelpMark& mark : hit.marks) {
        if (mark.start < done)
            continue;
        excerpt += hit.excerpt.mid(done, mark.start - done).toHtmlEscaped() + u"<b>"_s +
                   hit.excerpt.mid(mark.start, mark.length).toHtmlEscaped() + u"</b>"_s;
        done = mark.start + mark.length;
    }
    excerpt += hit.excerpt.mid(done).toHtmlEscaped();
    return u"<p style='margin:0'><b>%1</b></p><p style='margin:0'>%2</p>"_s.arg(
        title.toHtmlEscaped(), excerpt);
}

/// Draws a hit over as many lines as it needs.
class HitDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        item.text.clear();
        const QStyle& style = *option.widget->style();
        style.drawControl(QStyle::CE_ItemViewItem, &item, painter, option.widget);
        const bool selected = option.state & QStyle::State_Selected;
        const QColor colour =
            option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        QTextDocument document;
        layOut(document, option, index, colour);
        painter->save();
        painter->translate(option.rect.topLeft());
        document.drawContents(painter);
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QTextDocument document;
        layOut(document, option, index, Qt::black);
        return document.size().toSize();
    }

private:
    static void layOut(QTextDocument& document, const QStyleOptionViewItem& option,
                       const QModelIndex& index, const QColor& colour) {
        const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
        document.setDefaultFont(option.font);
        document.setHtml(u"<div style='color:%1'>%2</div>"_s.arg(
            colour.name(), index.data(MarkupRole).toString()));
        document.setTextWidth(view->viewport()->width());
    }
};

} // namespace

HelpContentsTree::HelpContentsTree(const HelpBook& book) {
    setObjectName(u"HelpContents"_s);
    setAccessibleName(u"Contents"_s);
    setHeaderHidden(true);
    for (const HelpChapter& chapter : book.chapters) {
        auto* chapterItem = new QTreeWidgetItem(this, QStringList(chapter.title));
        for (const int page : chapter.pages) {
            auto* item = new QTreeWidgetItem(chapterItem, QStringList(book.pages[page].title));
            item->setData(0, PageRole, page);
        }
    }
    expandAll();
    const auto choose = [this](const QTreeWidgetItem* item) {
        if (item->data(0, PageRole).isValid())
            emit pageChosen(item->data(0, PageRole).toInt());
    };
    connect(this, &QTreeWidget::itemClicked, this, choose);
    connect(this, &QTreeWidget::itemActivated, this, choose);
}

void HelpContentsTree::select(int page) {
    for (QTreeWidgetItemIterator item(this); *item; ++item) {
        const QVariant place = (*item)->data(0, PageRole);
        if (place.isValid() && place.toInt() == page)
            setCurrentItem(*item);
    }
}

HelpListPane::HelpListPane(const QString& name, const QString& question)
    : m_field(new QLineEdit), m_list(new QListWidget) {
    m_field->setObjectName(name + u"Field"_s);
    m_field->setAccessibleName(question);
    m_field->setClearButtonEnabled(true);
    setFocusProxy(m_field);
    m_list->setObjectName(name + u"List"_s);
    m_list->setAccessibleName(name + u" list"_s);
    auto* label = new QLabel(question);
    label->setWordWrap(true);
    label->setBuddy(m_field);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_field);
    layout->addWidget(m_list, 1);
    m_field->installEventFilter(this);
    connect(m_list, &QListWidget::itemClicked, this, &HelpListPane::choose);
    connect(m_list, &QListWidget::itemActivated, this, &HelpListPane::choose);
    connect(m_field, &QLineEdit::returnPressed, this, [this] { choose(m_list->currentItem()); });
}

void HelpListPane::addEntry(const QString& text, int page) {
    auto* entry = new QListWidgetItem(text, m_list);
    entry->setData(PageRole, page);
}

void HelpListPane::choose(const QListWidgetItem* entry) {
    if (entry && entry->data(PageRole).isValid())
        emit pageChosen(entry->data(PageRole).toInt());
}

bool HelpListPane::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_field || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_PageUp &&
        key != Qt::Key_PageDown)
        return false;
    QApplication::sendEvent(m_list, event);
    return true;
}

HelpIndexPane::HelpIndexPane(const HelpBook& book)
    : HelpListPane(u"Index"_s, u"Type the beginning of a word:"_s) {
    for (const HelpKeyword& keyword : book.index()) {
        for (const int page : keyword.pages) {
            const bool isAlone = keyword.pages.size() == 1;
            addEntry(isAlone ? keyword.word : keyword.word + u": "_s + book.pages[page].title,
                     page);
        }
    }
    list().setCurrentRow(0);
    connect(&field(), &QLineEdit::textChanged, this, &HelpIndexPane::goTo);
}

void HelpIndexPane::goTo(const QString& beginning) {
    for (int row = 0; row < list().count(); ++row) {
        if (!list().item(row)->text().startsWith(beginning, Qt::CaseInsensitive))
            continue;
        list().setCurrentRow(row);
        list().scrollToItem(list().item(row), QAbstractItemView::PositionAtTop);
        return;
    }
}

HelpSearchPane::HelpSearchPane(const HelpBook& book)
    : HelpListPane(u"Search"_s, u"Type the words to look for:"_s), m_book(book) {
    list().setItemDelegate(new HitDelegate(&list()));
    list().setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list().setResizeMode(QListView::Adjust);
    list().setAlternatingRowColors(true);
    connect(&field(), &QLineEdit::textChanged, this, &HelpSearchPane::search);
}

void HelpSearchPane::search(const QString& words) {
    list().clear();
    for (const HelpHit& hit : m_book.search(words)) {
        const QString& title = m_book.pages[hit.page].title;
        addEntry(title + u". "_s + hit.excerpt, hit.page);
        list().item(list().count() - 1)->setData(MarkupRole, markupOf(title, hit));
    }
    if (list().count() == 0 && !words.trimmed().isEmpty()) {
        auto* none = new QListWidgetItem(u"No page has all of these words."_s, &list());
        none->setData(MarkupRole, none->text());
        none->setFlags(Qt::NoItemFlags);
    }
    list().setCurrentRow(0);
}
