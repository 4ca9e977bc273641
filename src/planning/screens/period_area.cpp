#include "planning/screens/period_area.h"

#include "controls/colours.h"
#include "controls/rich_text_box.h"
#include "planning/screens/class_box.h"
#include "planning/screens/period_heading.h"
#include "planning/screens/sheet_paper.h"

#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

enum Column { HeadingColumn, ClassColumn, LessonColumn, HomeworkColumn };
constexpr int HeadingWidth = 52;
constexpr int ClassWidth = 96;
constexpr int LessonShare = 3;
constexpr int HomeworkShare = 2;
constexpr int LeastHeight = 58;
constexpr int Gap = 3;

void divide(QGridLayout& grid) {
    grid.setSpacing(Gap);
    grid.setColumnMinimumWidth(HeadingColumn, HeadingWidth);
    grid.setColumnMinimumWidth(ClassColumn, ClassWidth);
    grid.setColumnStretch(LessonColumn, LessonShare);
    grid.setColumnStretch(HomeworkColumn, HomeworkShare);
}

RichTextBox* makeBox(const QString& array, const QString& content, int period) {
    auto* box = new RichTextBox(u"%1, period %2"_s.arg(content).arg(period));
    box->setObjectName(u"%1(%2)"_s.arg(array).arg(period - 1));
    box->setMinimumHeight(LeastHeight);
    // What it would like to have does not count: the lines share what there is.
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    return box;
}

} // namespace

PeriodArea::PeriodArea(int periods, const QStringList& classCodes, QWidget* parent)
    : QWidget(parent) {
    auto* content = new QWidget;
    m_grid = new QGridLayout(content);
    m_grid->setContentsMargins({});
    divide(*m_grid);
    for (int period = 1; period <= periods; ++period)
        addLine(period, classCodes);
    m_scroll = new QScrollArea;
    m_scroll->setWidget(content);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameStyle(QFrame::NoFrame);
    m_scroll->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setMinimumHeight(LeastHeight + Gap);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Gap);
    layout->addWidget(makeColumnHeadings());
    layout->addWidget(m_scroll, 1);
}

PeriodArea::~PeriodArea() {
    // A box that goes with the focus hands it to the next one: nobody is left to hear it.
    for (const Line& line : m_lines) {
        for (QWidget* box :
             {static_cast<QWidget*>(line.classBox), static_cast<QWidget*>(line.lesson),
              static_cast<QWidget*>(line.homework)})
            box->disconnect(this);
    }
}

QWidget* PeriodArea::makeColumnHeadings() {
    auto* headings = new QWidget;
    auto* grid = new QGridLayout(headings);
    grid->setContentsMargins(0, 0, style()->pixelMetric(QStyle::PM_ScrollBarExtent), 0);
    divide(*grid);
    int column = HeadingColumn;
    for (const QString& text : {u"Period"_s, u"Class"_s, u"Main Activity"_s, u"Homework"_s}) {
        auto* label = new QLabel(text);
        label->setSizePolicy(column < LessonColumn ? QSizePolicy::Preferred : QSizePolicy::Ignored,
                             QSizePolicy::Fixed);
        grid->addWidget(label, 0, column++);
    }
    return headings;
}

void PeriodArea::addLine(int period, const QStringList& classCodes) {
    const Line line{new PeriodHeading(period), new ClassBox(period, classCodes),
                    makeBox(u"Text1"_s, u"Lesson"_s, period),
                    makeBox(u"Text3"_s, u"Homework"_s, period)};
    m_lines.push_back(line);
    line.classBox->setFixedWidth(ClassWidth);
    const int row = period - 1;
    m_grid->addWidget(line.heading, row, HeadingColumn);
    m_grid->addWidget(line.classBox, row, ClassColumn, Qt::AlignTop);
    m_grid->addWidget(line.lesson, row, LessonColumn);
    m_grid->addWidget(line.homework, row, HomeworkColumn);
    m_grid->setRowStretch(row, 1);
    const auto select = [this, period] { selectPeriod(period); };
    connect(line.heading, &PeriodHeading::pressed, this, select);
    connect(line.heading, &PeriodHeading::doubleClicked, this,
            [this, period] { emit planWanted(period); });
    connect(line.classBox, &ClassBox::entered, this, select);
    connect(line.classBox, &ClassBox::edited, this, select);
    for (RichTextBox* box : {line.lesson, line.homework}) {
        connect(box, &RichTextBox::entered, this, select);
        connect(box, &RichTextBox::edited, this, select);
    }
    connect(line.heading, &PeriodHeading::menuWanted, this,
            [this, period](const QPoint& place) { emit menuWanted(period, place); });
}

void PeriodArea::selectPeriod(int period) {
    if (m_selected == period)
        return;
    if (m_selected > 0)
        line(m_selected).heading->setSelected(false);
    m_selected = period;
    if (period > 0) {
        const Line& chosen = line(period);
        chosen.heading->setSelected(true);
        if (isVisible() && !chosen.classBox->hasFocus() && !chosen.lesson->hasFocus() &&
            !chosen.homework->hasFocus())
            chosen.lesson->setFocus();
    }
    emit periodSelected(period);
}

void PeriodArea::reveal(RichTextBox& box) {
    m_scroll->ensureWidgetVisible(&box);
}

void PeriodArea::takeBack(int period) {
    const Line& back = line(period);
    m_grid->addWidget(back.lesson, period - 1, LessonColumn);
    m_grid->addWidget(back.homework, period - 1, HomeworkColumn);
    // In the order of Tab they go back behind the class.
    setTabOrder(back.classBox, back.lesson);
    setTabOrder(back.lesson, back.homework);
    back.lesson->show();
    back.homework->show();
}

void PeriodArea::setHasSheet(bool hasSheet) {
    for (const Line& line : m_lines) {
        for (QWidget* widget :
             {static_cast<QWidget*>(line.heading), static_cast<QWidget*>(line.classBox),
              static_cast<QWidget*>(line.lesson), static_cast<QWidget*>(line.homework)})
            widget->setEnabled(hasSheet);
        line.classBox->setPaper(sheetPaper(hasSheet));
        line.lesson->setPaper(sheetPaper(hasSheet));
        line.homework->setPaper(sheetPaper(hasSheet));
    }
}

void PeriodArea::showColour(int period, std::optional<qint32> colour) {
    classBox(period).setPaper(colour ? toColour(*colour) : sheetPaper(true));
}

void PeriodArea::showCoding(const QList<ClassCoding>& coding) {
    for (int period = 1; period <= periods(); ++period) {
        const ClassCoding look = coding.value(period - 1);
        showColour(period, look.colour);
        classBox(period).setToolTip(look.hasShortTermPlan ? ShortTermPlanTip : QString());
    }
}

void PeriodArea::setClassCodes(const QStringList& codes) {
    for (const Line& each : m_lines)
        each.classBox->setCodes(codes);
}

void PeriodArea::mousePressEvent(QMouseEvent* event) {
    QWidget::mousePressEvent(event);
    // The right button comes through from a box whose menu it opens.
    if (event->button() == Qt::LeftButton)
        selectPeriod(0);
}
