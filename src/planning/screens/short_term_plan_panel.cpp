#include "planning/screens/short_term_plan_panel.h"

#include "controls/bound_rich_text.h"
#include "controls/bound_text.h"
#include "controls/format_tools.h"
#include "controls/icons.h"
#include "controls/wheel_guard.h"
#include "planning/plan_choices.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int LeastTextHeight = 58;
constexpr int ListShare = 2;
constexpr int DetailsShare = 4;
constexpr int ListWidthInLetters = 18;
constexpr int ChoiceWidthInLetters = 7;

/// A list of choices as the plan sees it. What is none of them is no choice.
class BoundChoice : public BoundBox {
public:
    explicit BoundChoice(QComboBox& list) : m_list(list) {
        QObject::connect(&m_list, &QComboBox::activated, &m_list, [this] { m_isChanged = true; });
    }

    void show(const QString& text) override {
        m_list.setCurrentIndex(m_list.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
        m_isChanged = false;
    }
    QString text() const override { return m_list.currentText(); }
    bool dataChanged() const override { return m_isChanged; }
    void setDataChanged(bool changed) override { m_isChanged = changed; }

private:
    QComboBox& m_list;
    bool m_isChanged = false;
};

/// As narrow as its column, and nothing to the mouse wheel.
QComboBox* makeList() {
    auto* list = new QComboBox;
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(ChoiceWidthInLetters);
    list->setFocusPolicy(Qt::StrongFocus);
    ignoreWheel(*list);
    return list;
}

/// Where a rich text of the plan stands. The grid has six columns; a caption is above its box.
struct TextPlace {
    QString field; ///< empty: the sheet's lesson, and behind it the homework
    QString caption;
    QString name; ///< in words
    int row;
    int column;
    int columns;
};
const TextPlace textPlaces[] = {
    {u"StartObj"_s, u"Starter Objectives:"_s, u"Starter objectives"_s, 0, 0, 3},
    {u"MainObj"_s, u"Main Objectives:"_s, u"Main objectives"_s, 0, 3, 3},
    {u"StartAct"_s, u"Starter:"_s, u"Starter activity"_s, 1, 0, 2},
    {{}, u"Main:"_s, {}, 1, 2, 2},
    {{}, u"Homework:"_s, {}, 1, 4, 2},
    {u"PlenaryObj"_s, u"Key Questions:"_s, u"Key questions"_s, 2, 0, 2},
    {u"LSA"_s, u"LSA:"_s, u"Notes for the learning support assistant"_s, 2, 2, 2},
    {u"Comments"_s, u"Comments / evaluation:"_s, u"Comments and evaluation"_s, 2, 4, 2},
};
constexpr int GridColumns = 6;
constexpr size_t LessonPlace = 3;
constexpr size_t HomeworkPlace = 4;
/// The box of the plan that the lesson follows in the order of Tab.
constexpr size_t BoxBeforeLesson = 2;

void putBox(QGridLayout& grid, const TextPlace& place, QWidget* box) {
    grid.addWidget(box, place.row * 2 + 1, place.column, 1, place.columns);
}

QLabel* makeCaption(const QString& text, QWidget* buddy) {
    auto* caption = new QLabel(text);
    caption->setBuddy(buddy);
    return caption;
}

} // namespace

ShortTermPlanPanel::ShortTermPlanPanel(ShortTermPlan& plan, int terms, FormatTools& tools,
                                       QWidget* parent)
    : QWidget(parent)
    , m_plan(plan)
    , m_period(new QLabel)
    , m_heading(new QLabel)
    , m_periods(new QListWidget) {
    setObjectName(u"STPpnl"_s);
    QWidget* header = makeHeader();
    makePeriodList();
    auto* top = new QHBoxLayout;
    top->setSpacing(2);
    top->addWidget(m_periods, ListShare);
    top->addWidget(makeDetails(terms), DetailsShare);
    top->addWidget(makeTimings());
    auto* content = new QWidget;
    auto* parts = new QVBoxLayout(content);
    parts->setContentsMargins(4, 0, 4, 0);
    parts->addLayout(top);
    parts->addWidget(makeTexts(tools), 1);
    auto* scroll = new QScrollArea;
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameStyle(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(2);
    layout->addWidget(header);
    layout->addWidget(scroll, 1);
}

QWidget* ShortTermPlanPanel::makeHeader() {
    auto* header = new QWidget;
    QFont bold = m_heading->font();
    bold.setBold(true);
    for (QLabel* label : {m_period, m_heading})
        label->setFont(bold);
    m_period->setObjectName(u"STPperiod"_s);
    m_heading->setObjectName(u"STPdate"_s);
    auto* close = new QToolButton;
    close->setObjectName(u"cmdCloseSTP"_s);
    close->setText(u"Close"_s);
    close->setIcon(icon(u"restore"_s));
    close->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    close->setToolTip(u"Close the 'short term plan' view."_s);
    close->setAccessibleName(close->toolTip());
    close->setFocusPolicy(Qt::TabFocus);
    connect(close, &QToolButton::clicked, this, &ShortTermPlanPanel::closeWanted);
    auto* layout = new QHBoxLayout(header);
    layout->setContentsMargins(4, 0, 4, 0);
    layout->addWidget(m_period);
    layout->addSpacing(m_period->fontMetrics().averageCharWidth() * 2);
    layout->addWidget(m_heading, 1);
    layout->addWidget(close);
    return header;
}

void ShortTermPlanPanel::makePeriodList() {
    m_periods->setObjectName(u"CL1"_s);
    m_periods->setAccessibleName(u"Period of the short term plan"_s);
    // As high as what stands beside it.
    m_periods->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    m_periods->setMinimumWidth(m_periods->fontMetrics().averageCharWidth() * ListWidthInLetters);
    m_periods->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The current item alone says nothing: the list makes one when the focus comes.
    connect(m_periods, &QListWidget::itemSelectionChanged, this, [this] {
        const QList<QListWidgetItem*> chosen = m_periods->selectedItems();
        if (!chosen.isEmpty())
            emit periodChosen(chosen.first()->data(Qt::UserRole).toInt());
    });
}

QGroupBox* ShortTermPlanPanel::makeDetails(int terms) {
    auto* details = new QGroupBox(u"Details for ST Plan"_s);
    QComboBox* subject = makeSubject();
    QComboBox* term = makeChoice(u"Term"_s, u"Term"_s, termChoices(terms));
    term->setObjectName(u"cboTerm"_s);
    QLineEdit* ability = makeLine(u"Ability"_s, u"Ability level"_s);
    ability->setObjectName(u"txtAbility"_s);
    QLineEdit* unit = makeLine(u"POS"_s, u"Unit of study"_s);
    unit->setObjectName(u"txtPOS"_s);
    constexpr int columnsOfLine = 3;
    auto* grid = new QGridLayout(details);
    grid->addWidget(makeCaption(u"Subject:"_s, subject), 0, 0);
    grid->addWidget(subject, 0, 1);
    grid->addWidget(makeCaption(u"Term:"_s, term), 0, 2);
    grid->addWidget(term, 0, 3);
    grid->addWidget(makeCaption(u"Ability Level:"_s, ability), 1, 0);
    grid->addWidget(ability, 1, 1, 1, columnsOfLine);
    grid->addWidget(makeCaption(u"Unit of Study:"_s, unit), 2, 0);
    grid->addWidget(unit, 2, 1, 1, columnsOfLine);
    grid->setColumnStretch(1, 2);
    grid->setColumnStretch(3, 1);
    setFocusProxy(subject);
    return details;
}

QGroupBox* ShortTermPlanPanel::makeTimings() {
    const struct {
        QString caption;
        QString field;
        LessonPart part;
    } timings[] = {
        {u"Starter"_s, u"StartTime"_s, LessonPart::Starter},
        {u"Main"_s, u"MainTime"_s, LessonPart::Main},
        {u"Plenary"_s, u"PlenaryTime"_s, LessonPart::Plenary},
    };
    auto* group = new QGroupBox(u"Activity Timing:"_s);
    auto* grid = new QGridLayout(group);
    int row = 0;
    for (const auto& timing : timings) {
        QComboBox* list = makeChoice(timing.field, u"Timing of the "_s + timing.caption.toLower(),
                                     timingChoices(timing.part));
        list->setObjectName(u"CboT(%1)"_s.arg(row));
        grid->addWidget(makeCaption(timing.caption + u':', list), row, 0);
        grid->addWidget(list, row++, 1);
    }
    return group;
}

QWidget* ShortTermPlanPanel::makeTexts(FormatTools& tools) {
    auto* texts = new QWidget;
    m_texts = new QGridLayout(texts);
    m_texts->setContentsMargins({});
    m_texts->setSpacing(3);
    for (int column = 0; column < GridColumns; ++column)
        m_texts->setColumnStretch(column, 1);
    for (const TextPlace& each : textPlaces) {
        RichTextBox* box = each.field.isEmpty() ? nullptr : makeText(tools, each.field, each.name);
        m_texts->addWidget(makeCaption(each.caption, box), each.row * 2, each.column, 1,
                           each.columns);
        m_texts->setRowStretch(each.row * 2 + 1, 1);
        if (box)
            putBox(*m_texts, each, box);
    }
    return texts;
}

QComboBox* ShortTermPlanPanel::makeSubject() {
    QComboBox* list = makeList();
    list->setObjectName(u"CBoSub"_s);
    list->setEditable(true);
    list->setInsertPolicy(QComboBox::NoInsert);
    list->setCompleter(nullptr); // what is typed is what is meant
    list->addItems(subjectChoices());
    list->setCurrentIndex(-1);
    list->setAccessibleName(u"Subject"_s);
    QLineEdit* line = list->lineEdit();
    line->setAccessibleName(list->accessibleName());
    const QString field = u"Subject"_s;
    line->setMaxLength(ShortTermPlan::longestText(field));
    m_bound.push_back(std::make_unique<BoundLine>(*line));
    m_plan.bind(field, *m_bound.back());
    connect(line, &QLineEdit::textEdited, this, &ShortTermPlanPanel::edited);
    connect(list, &QComboBox::activated, this, [this, line] {
        line->setModified(true);
        emit edited();
    });
    return list;
}

QComboBox* ShortTermPlanPanel::makeChoice(const QString& field, const QString& name,
                                          const QStringList& choices) {
    QComboBox* list = makeList();
    list->addItems(choices);
    list->setAccessibleName(name);
    m_bound.push_back(std::make_unique<BoundChoice>(*list));
    m_plan.bind(field, *m_bound.back());
    connect(list, &QComboBox::activated, this, &ShortTermPlanPanel::edited);
    return list;
}

QLineEdit* ShortTermPlanPanel::makeLine(const QString& field, const QString& name) {
    auto* line = new QLineEdit;
    line->setAccessibleName(name);
    line->setMaxLength(ShortTermPlan::longestText(field));
    m_bound.push_back(std::make_unique<BoundLine>(*line));
    m_plan.bind(field, *m_bound.back());
    connect(line, &QLineEdit::textEdited, this, &ShortTermPlanPanel::edited);
    return line;
}

RichTextBox* ShortTermPlanPanel::makeText(FormatTools& tools, const QString& field,
                                          const QString& name) {
    auto* box = new RichTextBox(name);
    box->setObjectName(field);
    box->setMinimumHeight(LeastTextHeight);
    // What it would like to have does not count: the boxes share what there is.
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    m_bound.push_back(std::make_unique<BoundRichText>(*box));
    m_plan.bind(field, *m_bound.back());
    m_boxes.push_back(box);
    tools.serve(*box);
    connect(box, &RichTextBox::edited, this, &ShortTermPlanPanel::edited);
    return box;
}

void ShortTermPlanPanel::showSheet(const QString& heading, const QList<PlannablePeriod>& periods) {
    const QSignalBlocker quiet(m_periods);
    m_heading->setText(heading);
    m_periods->clear();
    for (const PlannablePeriod& each : periods) {
        auto* item = new QListWidgetItem(each.caption, m_periods);
        item->setData(Qt::UserRole, each.period);
    }
}

void ShortTermPlanPanel::showPeriod(int period) {
    const QSignalBlocker quiet(m_periods);
    m_period->setText(u"Period %1"_s.arg(period));
    for (int row = 0; row < m_periods->count(); ++row) {
        if (m_periods->item(row)->data(Qt::UserRole).toInt() == period)
            return m_periods->setCurrentRow(row);
    }
    m_periods->setCurrentItem(nullptr);
    m_periods->clearSelection();
}

void ShortTermPlanPanel::takeIn(RichTextBox& lesson, RichTextBox& homework) {
    putBox(*m_texts, textPlaces[LessonPlace], &lesson);
    putBox(*m_texts, textPlaces[HomeworkPlace], &homework);
    QWidget* before = m_boxes[BoxBeforeLesson];
    for (QWidget* next : {static_cast<QWidget*>(&lesson), static_cast<QWidget*>(&homework)}) {
        next->show();
        setTabOrder(before, next);
        before = next;
    }
}

void ShortTermPlanPanel::applyDefaultFont(const FontRecord& font) {
    for (RichTextBox* box : m_boxes)
        box->applyDefaultFont(font);
}
