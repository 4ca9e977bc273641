#include "desktop/screens/selector_pages.h"

#include "controls/date_calendar.h"
#include "core/prompts.h"
#include "office/spreadsheet.h"

#include <QComboBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QIntValidator>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpressionValidator>
#include <QTableWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString NoColumn = u"None"_s;

bool isNoColumn(const QString& typed) {
    return typed.compare(NoColumn, Qt::CaseInsensitive) == 0;
}

QLabel* makeLine(const QString& text, QLayout& layout) {
    auto* label = new QLabel(text);
    label->setObjectName(u"Label2"_s);
    label->setWordWrap(true);
    label->setHidden(text.isEmpty());
    layout.addWidget(label);
    return label;
}

QListWidget* makeList(const SelectorRequest& request, const QStringList& items, QLayout& layout) {
    auto* list = new QListWidget;
    list->setObjectName(u"List1"_s);
    list->setAccessibleName(request.label.isEmpty() ? request.text : request.label);
    list->addItems(items);
    layout.addWidget(list);
    return list;
}

} // namespace

OneItemContent::OneItemContent(const OneItemRequest& request) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    makeLine(request.label, *layout);
    m_list = makeList(request, request.items, *layout);
    m_list->setCurrentRow(0);
    setFocusProxy(m_list);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &SelectorContent::finished);
}

std::optional<int> OneItemContent::item() const {
    return m_list->currentItem() ? std::optional(m_list->currentRow()) : std::nullopt;
}

SeveralItemsContent::SeveralItemsContent(const SeveralItemsRequest& request) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    makeLine(request.label, *layout);
    m_list = makeList(request, request.items, *layout);
    m_list->setSelectionMode(QAbstractItemView::MultiSelection);
    setFocusProxy(m_list);
    auto* all = new QPushButton(u"Select &All"_s);
    all->setObjectName(u"cmdAll"_s);
    all->setAutoDefault(false);
    layout->addWidget(all, 0, Qt::AlignLeft);
    connect(all, &QPushButton::clicked, m_list, &QListWidget::selectAll);
}

QList<int> SeveralItemsContent::items() const {
    QList<int> chosen;
    for (int row = 0; row < m_list->count(); ++row) {
        if (m_list->item(row)->isSelected())
            chosen += row;
    }
    return chosen;
}

SpreadsheetContent::SpreadsheetContent(const SpreadsheetRequest& request, Prompts& prompts)
    : m_prompts(prompts), m_row(makeRow(request)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    const std::optional<Spreadsheet> sheet = Spreadsheet::read(request.workbook);
    makeLine(request.label.isEmpty() ? u"Preview of "_s + QFileInfo(request.workbook).fileName()
                                     : request.label,
             *layout);
    if (!sheet)
        makeLine(u"The file can't be shown. "_s + Spreadsheet::hindrance(request.workbook),
                 *layout);
    layout->addWidget(makePreview(sheet.value_or(Spreadsheet())), 1);
    auto* form = new QFormLayout;
    for (int i = 0; i < request.columnLabels.size(); ++i) {
        m_columns += makeColumn(request, i);
        form->addRow(request.columnLabels[i], m_columns.last());
    }
    form->addRow(request.rowLabel, m_row);
    layout->addLayout(form);
}

QWidget* SpreadsheetContent::makePreview(const Spreadsheet& sheet) {
    constexpr int mostRows = 60; // as many as help to find one's way
    const int rows = qMin(sheet.rowCount(), mostRows);
    auto* preview = new QTableWidget(rows, sheet.columnCount());
    preview->setObjectName(u"OLE1"_s);
    preview->setAccessibleName(u"Preview of the sheet"_s);
    preview->setEditTriggers(QAbstractItemView::NoEditTriggers);
    preview->setTabKeyNavigation(false);
    preview->verticalHeader()->setDefaultSectionSize(preview->fontMetrics().height() + 4);
    for (int column = 0; column < sheet.columnCount(); ++column) {
        preview->setHorizontalHeaderItem(column, new QTableWidgetItem(columnLetters(column)));
        for (int row = 0; row < rows; ++row) {
            if (const QString text = sheet.cell(row, column); !text.isEmpty()) // most may be
                preview->setItem(row, column, new QTableWidgetItem(text));
        }
    }
    constexpr int lines = 9;
    constexpr int characters = 70;
    preview->setMinimumWidth(characters * preview->fontMetrics().averageCharWidth());
    preview->setMinimumHeight(lines * preview->verticalHeader()->defaultSectionSize());
    return preview;
}

QComboBox* SpreadsheetContent::makeColumn(const SpreadsheetRequest& request, int index) {
    static const QStringList names{u"CboA"_s, u"CboB"_s, u"CboC"_s};
    constexpr int third = 2;
    auto* box = new QComboBox;
    box->setObjectName(names.value(index));
    box->setAccessibleName(request.columnLabels[index]);
    box->setEditable(true);
    box->setCompleter(nullptr); // it would make None of the column N
    box->lineEdit()->setAccessibleName(box->accessibleName());
    box->addItems(request.columnChoices);
    if (index == third && request.thirdMayBeNone)
        box->addItem(NoColumn);
    box->setCurrentIndex(box->findText(request.columns.value(index))); // arrow keys go on from it
    box->setCurrentText(request.columns.value(index));
    static const QRegularExpression letters(u"[A-Za-z]*"_s);
    box->lineEdit()->setValidator(new QRegularExpressionValidator(letters, box));
    connect(box->lineEdit(), &QLineEdit::textEdited, box, [box](const QString& text) {
        const int caret = box->lineEdit()->cursorPosition();
        box->setEditText(text.toUpper());
        box->lineEdit()->setCursorPosition(caret);
    });
    return box;
}

QComboBox* SpreadsheetContent::makeRow(const SpreadsheetRequest& request) {
    constexpr int offered = 5;
    constexpr int highest = 65536;
    auto* box = new QComboBox;
    box->setObjectName(u"cboRow"_s);
    box->setAccessibleName(request.rowLabel);
    box->setEditable(true);
    box->lineEdit()->setAccessibleName(box->accessibleName());
    for (int row = 1; row <= offered; ++row)
        box->addItem(QString::number(row));
    box->setCurrentIndex(box->findText(QString::number(request.row)));
    box->setCurrentText(QString::number(request.row));
    box->lineEdit()->setValidator(new QIntValidator(1, highest, box));
    return box;
}

/// An empty row, or 0, is the first that is offered.
bool SpreadsheetContent::check() {
    if (m_row->currentText().toInt() < 1)
        m_row->setCurrentIndex(0);
    for (const QComboBox* column : std::as_const(m_columns)) {
        const bool mayBeNone = column->findText(NoColumn) >= 0;
        if ((mayBeNone && isNoColumn(column->currentText())) ||
            columnOfLetters(column->currentText()) >= 0)
            continue;
        m_prompts.PlainBox(u"One of the import columns is incorrectly assigned."_s, OkButton,
                           u"Invalid Column"_s);
        return false;
    }
    return true;
}

SpreadsheetChoice SpreadsheetContent::choice() const {
    SpreadsheetChoice choice{m_row->currentText().toInt(), {}};
    for (const QComboBox* column : m_columns) {
        const QString letters = column->currentText(); // typed ones are capitals
        choice.columns += isNoColumn(letters) ? QString() : letters;
    }
    return choice;
}

NewFieldContent::NewFieldContent(const NewFieldRequest& request, Prompts& prompts)
    : m_prompts(prompts), m_name(new QLineEdit), m_size(new QLineEdit) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    if (!request.showCalendar)
        makeLine(request.label, *layout);
    m_name->setObjectName(u"TxtName"_s);
    m_name->setAccessibleName(u"Name"_s);
    m_name->setMaxLength(NewFieldNameLength);
    m_name->setText(request.name);
    m_name->installEventFilter(this);
    m_name->selectAll();
    auto* row = new QFormLayout;
    row->addRow(u"&Name:"_s, m_name);
    layout->addLayout(row);
    QWidget* types = makeTypes(request);
    layout->addWidget(types);
    types->setVisible(request.showTypes);
    if (request.showCalendar) {
        makeLine(request.label, *layout);
        m_calendar = new DateCalendar(u"Date of the work"_s);
        m_calendar->setObjectName(u"Calendar1"_s);
        layout->addWidget(m_calendar);
        layout->addLayout(makeDateLine());
        connect(m_calendar, &QCalendarWidget::selectionChanged, this, [this] { pickDate(true); });
        connect(m_calendar, &QCalendarWidget::clicked, this, [this] { pickDate(true); });
        connect(m_calendar, &QCalendarWidget::activated, this, [this] { pickDate(true); });
        pickDate(false);
    }
    setFocusProxy(m_name);
    enableSize();
}

/// Says which date is picked, and takes it back.
QLayout* NewFieldContent::makeDateLine() {
    m_date = new QLabel;
    m_date->setObjectName(u"LblDate"_s);
    m_noDate = new QPushButton(u"No &Date"_s);
    m_noDate->setObjectName(u"cmdNoDate"_s);
    m_noDate->setAutoDefault(false);
    connect(m_noDate, &QPushButton::clicked, this, [this] { pickDate(false); });
    auto* line = new QHBoxLayout;
    line->addWidget(m_date, 1);
    line->addWidget(m_noDate);
    return line;
}

void NewFieldContent::pickDate(bool isPicked) {
    m_isDatePicked = isPicked;
    m_calendar->setChosen(isPicked);
    m_date->setText(isPicked ? locale().toString(m_calendar->selectedDate(), QLocale::LongFormat)
                             : u"No date is chosen."_s);
    m_noDate->setEnabled(isPicked);
}

QWidget* NewFieldContent::makeTypes(const NewFieldRequest& request) {
    auto* group = new QGroupBox(u"Type"_s);
    auto* layout = new QVBoxLayout(group);
    m_size->setObjectName(u"TxtSize"_s);
    m_size->setAccessibleName(u"Size of the text"_s);
    m_size->setMaxLength(NewFieldSizeLength);
    m_size->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), m_size));
    m_size->setText(QString::number(UsualNewFieldSize));
    m_size->setFixedWidth(m_size->fontMetrics().averageCharWidth() * 8);
    m_size->installEventFilter(this);
    const dao::DataType usual = request.memoOnly ? dao::DataType::Memo : UsualNewFieldType;
    for (const NewFieldType& each : newFieldTypes()) {
        auto* button = new QRadioButton(each.caption);
        button->setObjectName(u"OptType(%1)"_s.arg(m_types.size()));
        button->setChecked(each.type == usual);
        m_types += button;
        auto* row = new QHBoxLayout;
        row->addWidget(button);
        if (each.type == dao::DataType::Text) {
            row->addWidget(m_size);
            m_size->setHidden(request.memoOnly);
        }
        row->addStretch();
        layout->addLayout(row);
        button->setHidden(request.memoOnly && each.type != dao::DataType::Memo);
        connect(button, &QRadioButton::toggled, this, &NewFieldContent::enableSize);
    }
    return group;
}

void NewFieldContent::enableSize() {
    m_size->setEnabled(type() == dao::DataType::Text);
}

dao::DataType NewFieldContent::type() const {
    for (int i = 0; i < m_types.size(); ++i) {
        if (m_types[i]->isChecked())
            return newFieldTypes()[i].type;
    }
    return UsualNewFieldType;
}

NewField NewFieldContent::field() const {
    return {m_name->text(), type(), m_size->text().toInt(),
            m_isDatePicked ? m_calendar->selectedDate() : QDate()};
}

bool NewFieldContent::check() {
    return checkNewField(field(), m_prompts);
}

bool NewFieldContent::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return SelectorContent::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (watched == m_name && isReturn && m_size->isEnabled() && m_size->isVisible()) {
        m_size->setFocus();
        m_size->selectAll();
        return true;
    }
    return watched == m_name && nameKey(key->text());
}

/// Whether a key has been dealt with: one that can't stand in a name is not typed.
bool NewFieldContent::nameKey(const QString& typed) {
    return !typed.isEmpty() && typed.at(0).isPrint() && !checkNewFieldKey(typed.at(0), m_prompts);
}
