#include "classes/screens/sort_panel.h"

#include "classes/class_desk.h"
#include "controls/icons.h"
#include "core/session.h"

#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QPushButton* addPanelButton(QLayout& layout, const QString& name, const QString& text) {
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    button->setAutoDefault(false);
    layout.addWidget(button);
    return button;
}

} // namespace

SortPanel::SortPanel(Session& session, ClassDesk& desk)
    : m_session(session)
    , m_desk(desk)
    , m_field(new QComboBox)
    , m_comparison(new QComboBox)
    , m_value(new QComboBox)
    , m_query(new QPlainTextEdit) {
    setObjectName(u"Psort"_s);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    addTab(makeSortPage(), u"Sort"_s);
    addTab(makeQueryPage(), u"Query"_s);
}

QWidget* SortPanel::makeSortPage() {
    static const QStringList captions{u"Sort by"_s, u"Then by"_s, u"Then by"_s};
    auto* page = new QWidget;
    auto* layout = new QGridLayout(page);
    for (int i = 0; i < captions.size(); ++i) {
        auto* box = new QComboBox;
        box->setObjectName(u"Cbo2(%1)"_s.arg(i));
        box->setAccessibleName(i == 0 ? captions[i] : u"%1, %2"_s.arg(captions[i]).arg(i + 1));
        box->installEventFilter(this);
        auto* group = new QWidget; // its two buttons exclude each other
        auto* options = new QHBoxLayout(group);
        options->setContentsMargins({});
        auto* ascending = new QRadioButton(u"Ascending"_s);
        auto* descending = new QRadioButton(u"Descending"_s);
        ascending->setObjectName(u"Option1(%1)"_s.arg(2 * i));
        descending->setObjectName(u"Option1(%1)"_s.arg(2 * i + 1));
        ascending->setChecked(true);
        options->addWidget(ascending);
        options->addWidget(descending);
        layout->addWidget(new QLabel(captions[i]), i, 0);
        layout->addWidget(box, i, 1);
        layout->addWidget(group, i, 2);
        m_sortBoxes.append({box, descending});
    }
    auto* buttons = new QVBoxLayout;
    connect(addPanelButton(*buttons, u"cmdSort"_s, u"Sort"_s), &QPushButton::clicked, this,
            &SortPanel::sort);
    connect(addPanelButton(*buttons, u"cmdClearSort"_s, u"Clear"_s), &QPushButton::clicked, this,
            &SortPanel::clearSort);
    layout->addLayout(buttons, 0, 3, 3, 1, Qt::AlignTop);
    layout->setColumnStretch(4, 1);
    layout->setColumnMinimumWidth(1, fontMetrics().averageCharWidth() * 24);
    return page;
}

QWidget* SortPanel::makeQueryPage() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(makeConditionRow());
    layout->addWidget(makeLogicalRow());
    layout->addWidget(makeRunRow());
    return page;
}

QWidget* SortPanel::makeConditionRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    m_field->setObjectName(u"CboF"_s);
    m_field->setAccessibleName(u"Field"_s);
    m_comparison->setObjectName(u"CboOpp"_s);
    m_comparison->setAccessibleName(u"Operator"_s);
    m_comparison->addItems(queryOperators());
    m_value->setObjectName(u"cboVal"_s);
    m_value->setAccessibleName(u"Criteria"_s);
    m_value->setToolTip(
        u"Enter criteria for this field and press return. Use the 'look up' to find "
        "valid criteria."_s);
    m_value->setEditable(true);
    m_value->setInsertPolicy(QComboBox::NoInsert);
    m_value->setCompleter(nullptr); // 1 is 1, whatever 12 was looked up
    m_value->setMinimumContentsLength(16);
    m_value->lineEdit()->setAccessibleName(m_value->accessibleName());
    m_value->installEventFilter(this); // it gets the keys, and hands them to its line itself
    auto* arrow = new QToolButton;
    arrow->setObjectName(u"cmdBuild"_s);
    arrow->setIcon(icon(u"next"_s));
    arrow->setToolTip(u"Add this condition to the query"_s);
    arrow->setAccessibleName(arrow->toolTip());
    arrow->setFocusPolicy(Qt::TabFocus);
    for (QWidget* part : std::initializer_list<QWidget*>{m_field, m_comparison, m_value, arrow})
        layout->addWidget(part);
    connect(addPanelButton(*layout, u"cmdLookUp"_s, u"Look Up"_s), &QPushButton::clicked, this,
            &SortPanel::lookUp);
    layout->addStretch();
    connect(arrow, &QToolButton::clicked, this, &SortPanel::build);
    return row;
}

/// One stays selected until another is clicked or the panel is cleared.
QWidget* SortPanel::makeLogicalRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    layout->addWidget(new QLabel(u"Logical Operators"_s));
    for (const QString& text : logicalOperators()) {
        auto* button = new QToolButton;
        button->setObjectName(u"lblcmd(%1)"_s.arg(m_logical.size()));
        button->setText(text);
        button->setAccessibleName(text);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, [this, button] {
            for (QToolButton* each : std::as_const(m_logical))
                each->setChecked(each == button);
        });
        layout->addWidget(button);
        m_logical += button;
    }
    layout->addStretch();
    return row;
}

QWidget* SortPanel::makeRunRow() {
    constexpr int lines = 3;
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins({});
    m_query->setObjectName(u"SQLtxt"_s);
    m_query->setAccessibleName(u"Current Query"_s);
    m_query->setReadOnly(true);
    m_query->setTabChangesFocus(true);
    m_query->setFixedHeight(lines * fontMetrics().lineSpacing() + 10);
    layout->addWidget(new QLabel(u"Current Query: "_s));
    layout->addWidget(m_query, 1);
    connect(addPanelButton(*layout, u"cmdRun"_s, u"Run"_s), &QPushButton::clicked, this,
            &SortPanel::run);
    connect(addPanelButton(*layout, u"cmdClearQuery"_s, u"Clear"_s), &QPushButton::clicked, this,
            &SortPanel::clearQuery);
    connect(addPanelButton(*layout, u"cmdAll"_s, u"Show All Pupils"_s), &QPushButton::clicked, this,
            &SortPanel::allWanted);
    return row;
}

void SortPanel::fillSortFields() {
    if (std::exchange(m_classCode, m_desk.classCode()) != m_desk.classCode()) {
        clearSort();
        clearQuery();
        m_comparison->setCurrentIndex(0);
    }
    m_fields = ::queryFields(m_session.CurrentDB, m_desk.classCode());
    QStringList names;
    for (const QueryField& each : std::as_const(m_fields))
        names += each.name;
    QList<QComboBox*> boxes{m_field};
    for (const SortBox& box : std::as_const(m_sortBoxes))
        boxes += box.field;
    for (QComboBox* box : std::as_const(boxes)) {
        const QString chosen = box->currentText();
        box->clear();
        box->addItems(names);
        box->setCurrentIndex(chosen.isEmpty() ? -1 : box->findText(chosen));
    }
}

void SortPanel::sort() {
    QList<SortKey> keys;
    for (const SortBox& box : std::as_const(m_sortBoxes))
        keys.append({box.field->currentIndex(), box.descending->isChecked()});
    const std::optional<QString> sorted = sortedQuery(m_desk.query(), m_desk.classCode(), m_fields,
                                                      keys, m_session.GetSeams().prompts);
    if (sorted)
        emit queryWanted(*sorted, false);
}

void SortPanel::clearSort() {
    for (const SortBox& box : std::as_const(m_sortBoxes))
        box.field->setCurrentIndex(-1);
}

std::optional<QueryField> SortPanel::field() const {
    return m_field->currentIndex() < 0 ? std::nullopt
                                       : std::optional(m_fields[m_field->currentIndex()]);
}

QString SortPanel::logicalOperator() const {
    for (const QToolButton* each : m_logical) {
        if (each->isChecked())
            return each->text();
    }
    return {};
}

void SortPanel::build() {
    const std::optional<QString> built =
        Built_SQL(m_query->toPlainText(), m_desk.query(),
                  {field(), m_comparison->currentText(), m_value->currentText(), logicalOperator()},
                  m_session.GetSeams().prompts);
    if (!built)
        return;
    m_query->setPlainText(*built);
    m_query->moveCursor(QTextCursor::End); // the condition added is in view
}

void SortPanel::lookUp() {
    if (!field())
        return;
    const QString typed = m_value->currentText();
    m_value->clear();
    m_value->addItems(fieldValues(m_desk.sheet(), field()->name));
    m_value->setEditText(typed);
    m_value->showPopup();
}

void SortPanel::clearQuery() {
    for (QToolButton* each : std::as_const(m_logical))
        each->setChecked(false);
    for (QComboBox* box : {m_field, m_comparison})
        box->setCurrentIndex(-1);
    m_value->clear();
    m_value->clearEditText();
    m_query->clear();
}

void SortPanel::run() {
    const QString query = m_query->toPlainText();
    if (checkQuery(m_session.CurrentDB, query, m_session.GetSeams().prompts))
        emit queryWanted(query, true);
}

bool SortPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QTabWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (watched != m_value) {
        auto* box = qobject_cast<QComboBox*>(watched);
        if (!box || key->key() != Qt::Key_Delete)
            return QTabWidget::eventFilter(watched, event);
        box->setCurrentIndex(-1);
        return true;
    }
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        build();
        return true;
    }
    return !key->text().isEmpty() &&
           !checkValueKey(field(), key->text().at(0), m_session.GetSeams().prompts);
}
