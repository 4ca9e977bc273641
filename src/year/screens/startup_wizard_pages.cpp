#include "year/screens/startup_wizard_pages.h"

#include "core/paths.h"
#include "year/wizard_rules.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

constexpr int UsualPeriods = 5;
constexpr int ActionRole = Qt::UserRole; ///< a StartupAction

/// A caption's "&&" is read as "&", as on a button.
class CaptionDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale&) const override {
        return value.toString().replace(u"&&"_s, u"&"_s);
    }
};

/// A row of a form. The caption is the field's name for screen readers, without its access key.
void addRow(QFormLayout* form, const QString& caption, QWidget* field) {
    field->setAccessibleName(QString(caption).remove(u'&').remove(u':'));
    if (auto* combo = qobject_cast<QComboBox*>(field); combo && combo->isEditable())
        combo->lineEdit()->setAccessibleName(combo->accessibleName());
    form->addRow(caption, field);
}

QComboBox* makeCombo(const QString& objectName, const QStringList& items) {
    auto* combo = new QComboBox;
    combo->setObjectName(objectName);
    combo->addItems(items);
    return combo;
}

} // namespace

ActionsPage::ActionsPage(const QStringList& actions, const QStringList& recentYears)
    : m_actions(new QListWidget), m_years(new QComboBox) {
    auto* question = new QLabel(u"What would you like to do today?"_s);
    m_actions->setObjectName(u"CL1"_s);
    m_actions->setAccessibleName(question->text());
    m_actions->setItemDelegate(new CaptionDelegate(m_actions));
    if (!recentYears.isEmpty())
        addLine(OpenAction, actions[OpenAction]);
    for (int action = 0; action < actions.size(); ++action) {
        if (recentYears.isEmpty() || action != OpenAction)
            addLine(action, actions[action]);
    }
    setFocusProxy(m_actions);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(question);
    layout->addWidget(m_actions);
    QWidget* years = makeYears(recentYears);
    layout->addWidget(years);
    years->setVisible(!recentYears.isEmpty());
    connect(m_actions, &QListWidget::itemDoubleClicked, this, &ActionsPage::activated);
    connect(m_actions, &QListWidget::currentRowChanged, years,
            [this, years] { years->setEnabled(action() == OpenAction); });
    m_actions->setCurrentRow(0);
}

void ActionsPage::addLine(int action, const QString& text) {
    auto* item = new QListWidgetItem(text, m_actions);
    item->setData(ActionRole, action);
    item->setData(Qt::AccessibleTextRole, QString(text).replace(u"&&"_s, u"and"_s));
}

QWidget* ActionsPage::makeYears(const QStringList& recentYears) {
    auto* years = new QWidget;
    m_years->setObjectName(u"cboYears"_s);
    m_years->setAccessibleName(u"Year to open"_s);
    m_years->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    for (const QString& path : recentYears) {
        m_years->addItem(ShortenPath(path), path);
        m_years->setItemData(m_years->count() - 1, path, Qt::ToolTipRole);
    }
    auto* caption = new QLabel(u"&Year:"_s);
    caption->setBuddy(m_years);
    auto* other = new QPushButton(u"&Another file..."_s);
    other->setObjectName(u"cmdOtherYear"_s);
    other->setAutoDefault(true);
    connect(other, &QPushButton::clicked, this, &ActionsPage::otherYearWanted);
    auto* layout = new QHBoxLayout(years);
    layout->setContentsMargins({});
    layout->addWidget(caption);
    layout->addWidget(m_years, 1);
    layout->addWidget(other);
    return years;
}

int ActionsPage::action() const {
    const QListWidgetItem* item = m_actions->currentItem();
    return item ? item->data(ActionRole).toInt() : NoAction;
}

void ActionsPage::setAction(int action) {
    for (int row = 0; row < m_actions->count(); ++row) {
        if (m_actions->item(row)->data(ActionRole).toInt() == action)
            m_actions->setCurrentRow(row);
    }
}

QString ActionsPage::chosenYear() const {
    return m_years->currentData().toString();
}

TeacherPage::TeacherPage(QDate today)
    : m_title(makeCombo(u"Combo1"_s, {u"Mr"_s, u"Mrs"_s, u"Miss"_s, u"Ms"_s, u"Dr"_s}))
    , m_name(new QLineEdit)
    , m_year(makeCombo(u"Combo2"_s, academicYears(today)))
    , m_periods(makeCombo(u"Combo3"_s, {}))
    , m_twoWeeks(new QCheckBox(u"My timetable has &two alternating weeks, A and B"_s)) {
    m_title->setEditable(true);
    m_title->setInsertPolicy(QComboBox::NoInsert);
    m_name->setObjectName(u"Text1"_s);
    m_year->setCurrentIndex(proposedYear(today));
    for (int periods = 1; periods <= MaximumPeriods; ++periods)
        m_periods->addItem(QString::number(periods), periods);
    m_periods->setCurrentIndex(UsualPeriods - 1);
    m_twoWeeks->setObjectName(u"Chk2"_s);
    m_twoWeeks->setAccessibleName(m_twoWeeks->text().remove(u'&'));
    setFocusProxy(m_title);

    auto* form = new QFormLayout(this);
    form->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    constexpr int nameLetters = 32;
    m_name->setMinimumWidth(fontMetrics().averageCharWidth() * nameLetters);
    addRow(form, u"T&itle:"_s, m_title);
    addRow(form, u"N&ame:"_s, m_name);
    addRow(form, u"Academic &year:"_s, m_year);
    addRow(form, u"&Periods per day:"_s, m_periods);
    form->addRow(QString(), m_twoWeeks);
}

void TeacherPage::putInto(YearAnswers& answers) const {
    answers.title = m_title->currentText().trimmed();
    answers.name = m_name->text().trimmed();
    answers.year = m_year->currentText();
    answers.periodsPerDay = m_periods->currentData().toInt();
    answers.twoWeeks = m_twoWeeks->isChecked();
}

void TeacherPage::focusOn(const QString& answer) {
    if (answer == u"title")
        m_title->setFocus();
    else
        m_name->setFocus();
}

StartWeekPage::StartWeekPage()
    : m_question(new QLabel), m_letter(makeCombo(u"Combo6"_s, {u"A"_s, u"B"_s})) {
    m_question->setObjectName(u"lblStartWeek"_s);
    m_question->setWordWrap(true);
    setFocusProxy(m_letter);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_question);
    layout->addWidget(m_letter, 0, Qt::AlignLeft);
    layout->addStretch();
}

void StartWeekPage::setQuestion(const QString& question) {
    m_question->setText(question);
    m_letter->setAccessibleName(question);
}

void StartWeekPage::putInto(YearAnswers& answers) const {
    if (answers.twoWeeks)
        answers.startWeek = m_letter->currentText();
}
