#include "desktop/screens/prompt_pages.h"

#include "controls/date_field.h"
#include "core/dates.h"
#include "core/typed_date.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStandardItemModel>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

QLabel* captionFor(QWidget* field, const QString& caption) {
    auto* label = new QLabel(caption);
    label->setBuddy(field);
    return label;
}

/// A caption as words, without the mark of its access key.
QString inWords(QString caption) {
    return caption.remove(u'&').remove(u':');
}

} // namespace

InputPage::InputPage(const QString& question, const QString& proposal)
    : m_field(new QLineEdit(proposal)) {
    m_field->setObjectName(u"txtInput"_s);
    m_field->setAccessibleName(question);
    m_field->selectAll();
    setFocusProxy(m_field);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_field);
}

QString InputPage::text() const {
    return m_field->text();
}

PeriodPage::PeriodPage(const DatePeriod& limits, QDate today) {
    const QString firstCaption = u"Date to &start from:"_s;
    const QString lastCaption = u"Date to &end at:"_s;
    m_first = new DateField(inWords(firstCaption), DateField::Style::Open);
    m_last = new DateField(inWords(lastCaption), DateField::Style::Open);
    m_first->setObjectName(u"Calendar(0)"_s);
    m_last->setObjectName(u"Calendar(1)"_s);
    for (DateField* calendar : {m_first, m_last})
        calendar->setRange(limits.first, limits.last);
    m_first->setDate(limits.first.isValid() ? limits.first : today);
    m_last->setDate(limits.last.isValid() ? limits.last : today);
    setFocusProxy(m_first);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(captionFor(m_first, firstCaption), 0, 0);
    layout->addWidget(captionFor(m_last, lastCaption), 0, 1);
    layout->addWidget(m_first, 1, 0);
    layout->addWidget(m_last, 1, 1);
}

std::optional<DatePeriod> PeriodPage::period() const {
    const DatePeriod period{m_first->date(), m_last->date()};
    const bool inOrder =
        period.first.isValid() && period.last.isValid() && period.first <= period.last;
    return inOrder ? std::optional(period) : std::nullopt;
}

LinkPage::LinkPage(const QString& name, const QString& path, Prompts& prompts)
    : m_path(new QLineEdit(path)), m_name(new QLineEdit(name)), m_prompts(prompts) {
    const QString pathCaption = u"Enter the File or URL to create a link with:"_s;
    const QString nameCaption = u"Enter a name for this link:"_s;
    m_path->setObjectName(u"txtFile"_s);
    m_path->setAccessibleName(inWords(pathCaption));
    m_path->setMaxLength(FileLinkSize);
    m_name->setObjectName(u"txtName"_s);
    m_name->setAccessibleName(inWords(nameCaption));
    m_name->setMaxLength(FileLinkSize);
    auto* button = new QPushButton(u"&Browse..."_s);
    button->setObjectName(u"cmdBrowse"_s);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, &LinkPage::browse);
    setFocusProxy(m_path);

    constexpr int lettersShown = 50;
    m_path->setMinimumWidth(fontMetrics().averageCharWidth() * lettersShown);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(captionFor(m_path, pathCaption), 0, 0, 1, 2);
    layout->addWidget(m_path, 1, 0);
    layout->addWidget(button, 1, 1);
    layout->addWidget(captionFor(m_name, nameCaption), 2, 0, 1, 2);
    layout->addWidget(m_name, 3, 0, 1, 2);
    setTabOrder(m_path, button);
    setTabOrder(button, m_name);
}

QString LinkPage::name() const {
    return m_name->text();
}

QString LinkPage::path() const {
    return m_path->text().trimmed();
}

void LinkPage::browse() {
    const QString folder = path().isEmpty() ? QString() : QFileInfo(path()).path();
    const QString chosen = m_prompts.OpenFileDialog(
        u" Select the file to link to :"_s, {{u"All file types"_s, u"*.*"_s}}, folder,
        ExplorerStyle | PathMustExist | FileMustExist, false);
    if (chosen.isEmpty())
        return;
    m_path->setText(chosen);
    m_name->setFocus();
}

bool LinkPage::check() {
    const int flags = OkButton | WarningIcon;
    switch (linkFault(name(), path())) {
    case LinkFault::Path:
        m_prompts.PlainBox(u"You must enter a valid file path or a correctly formatted URL."_s,
                           flags, u"Invalid Filename"_s);
        m_path->setFocus();
        return false;
    case LinkFault::Name:
        m_prompts.PlainBox(u"You must enter a Name for the link"_s, flags, u"Invalid name"_s);
        m_name->setFocus();
        return false;
    case LinkFault::None:
        break;
    }
    return true;
}

AllLinksPage::AllLinksPage(QList<FileLink> links, std::function<void(const FileLink&)> open)
    : m_links(std::move(links)), m_open(std::move(open)), m_grid(new QTableView) {
    m_grid->setObjectName(u"gridLinks"_s);
    m_grid->setAccessibleName(u"File links"_s);
    m_grid->setAccessibleDescription(u"Enter opens the link"_s);
    m_grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_grid->setSelectionMode(QAbstractItemView::SingleSelection);
    m_grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_grid->setTabKeyNavigation(false);
    m_grid->verticalHeader()->hide();
    setFocusProxy(m_grid);
    fill();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_grid);

    connect(m_grid, &QTableView::doubleClicked, this, &AllLinksPage::openCurrent);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, m_grid);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, &AllLinksPage::openCurrent);
    }
}

void AllLinksPage::fill() {
    auto* model = new QStandardItemModel(0, 2, m_grid);
    model->setHorizontalHeaderLabels({u"Date"_s, u"Link name"_s});
    for (const FileLink& link : std::as_const(m_links)) {
        const QDate date = sheetDate(link.planDate);
        const QString shown = date.isValid() ? typedDateText(date, locale()) : link.planDate;
        auto* name = new QStandardItem(link.name);
        name->setToolTip(link.path);
        model->appendRow({new QStandardItem(shown), name});
    }
    m_grid->setModel(model);
    m_grid->resizeColumnToContents(0);
    m_grid->horizontalHeader()->setStretchLastSection(true);
    m_grid->setCurrentIndex(model->index(0, 0));
}

void AllLinksPage::openCurrent() {
    const int row = m_grid->currentIndex().row();
    if (row >= 0)
        m_open(m_links[row]);
}
