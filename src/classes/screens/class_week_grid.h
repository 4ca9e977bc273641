#pragma once

#include "classes/new_class.h"

#include <QTableWidget>

/// A week of the New Class Wizard: a row a period, a column a day. A click, Space or Return picks
/// the cell with the caret.
class ClassWeekGrid : public QTableWidget {
    Q_OBJECT

public:
    ClassWeekGrid(int periodsPerDay, const QString& name);

    void showWeek(const NewClass& answers, QChar letter);

signals:
    void cellPicked(int index); ///< as TaughtWeek counts

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void pick(int row, int column);
};
