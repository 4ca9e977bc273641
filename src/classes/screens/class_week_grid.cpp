#include "classes/screens/class_week_grid.h"

#include <QHeaderView>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

const QStringList DayCaptions{u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s};

QStringList periodCaptions(int periods) {
    QStringList captions;
    for (int period = 1; period <= periods; ++period)
        captions += QString::number(period);
    return captions;
}

QString spokenCell(const QString& day, int period, const TaughtPeriod& cell, bool isPicked) {
    const QString state = cell.taken ? u"taken by "_s + cell.caption
                          : isPicked ? u"picked"_s
                                     : u"free"_s;
    return u"%1, period %2, %3"_s.arg(day).arg(period).arg(state);
}

} // namespace

ClassWeekGrid::ClassWeekGrid(int periodsPerDay, const QString& name)
    : QTableWidget(periodsPerDay, DaysOfTimetable) {
    setObjectName(name);
    setAccessibleName(u"Periods in which the class is taught"_s);
    setHorizontalHeaderLabels(DayCaptions);
    setVerticalHeaderLabels(periodCaptions(periodsPerDay));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setTabKeyNavigation(false);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    for (int row = 0; row < periodsPerDay; ++row) {
        for (int column = 0; column < DaysOfTimetable; ++column) {
            auto* item = new QTableWidgetItem;
            item->setTextAlignment(Qt::AlignCenter);
            setItem(row, column, item);
        }
    }
    setCurrentCell(0, 0);
    connect(this, &QTableWidget::cellClicked, this, &ClassWeekGrid::pick);
}

/// What is taken recedes, what is picked stands out.
void ClassWeekGrid::showWeek(const NewClass& answers, QChar letter) {
    const TaughtWeek& week = answers.week(letter);
    for (int index = 0; index < week.size(); ++index) {
        const int day = index % DaysOfTimetable;
        const int row = index / DaysOfTimetable;
        const bool picked = isPicked(answers, week[index]);
        QTableWidgetItem* cell = item(row, day);
        cell->setText(week[index].caption);
        cell->setBackground(picked              ? palette().highlight()
                            : week[index].taken ? palette().alternateBase()
                                                : palette().base());
        cell->setForeground(picked ? palette().highlightedText() : palette().text());
        cell->setData(Qt::AccessibleTextRole,
                      spokenCell(DayCaptions[day], row + 1, week[index], picked));
    }
}

void ClassWeekGrid::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        pick(currentRow(), currentColumn());
        break;
    default:
        QTableWidget::keyPressEvent(event);
    }
}

void ClassWeekGrid::pick(int row, int column) {
    if (row >= 0 && column >= 0)
        emit cellPicked(row * DaysOfTimetable + column);
}
