#pragma once

#include "planning/daily_sheets.h"

#include <QWidget>

#include <vector>

class ClassBox;
class PeriodHeading;
class QGridLayout;
class QScrollArea;
class RichTextBox;

/// The periods of a sheet, a line each under the headings of the columns: the number, the class,
/// the lesson and the homework. The lines share the height and scroll where there is not enough of
/// it. At most one period is selected.
class PeriodArea : public QWidget {
    Q_OBJECT

public:
    PeriodArea(int periods, const QStringList& classCodes, QWidget* parent = nullptr);
    ~PeriodArea() override;

    /// Periods count from 1.
    int periods() const { return static_cast<int>(m_lines.size()); }
    RichTextBox& lesson(int period) const { return *line(period).lesson; }
    RichTextBox& homework(int period) const { return *line(period).homework; }
    ClassBox& classBox(int period) const { return *line(period).classBox; }

    int selectedPeriod() const { return m_selected; } ///< 0 is none
    /// Selects a period, or none for 0. The lesson takes the focus unless a box of the period has
    /// it, or something else lies over the periods.
    void selectPeriod(int period);

    /// Whether there is a sheet to write on; without one everything is grey.
    void setHasSheet(bool hasSheet);
    void showColour(int period, std::optional<qint32> colour);
    void showCoding(const QList<ClassCoding>& coding);
    /// The classes to choose from; what stands in the boxes stays.
    void setClassCodes(const QStringList& codes);
    /// Scrolls to one of the boxes.
    void reveal(RichTextBox& box);
    /// Puts the boxes of lesson and homework back into their line, from wherever they were shown.
    void takeBack(int period);

signals:
    void periodSelected(int period);
    void planWanted(int period); ///< the short term plan
    void menuWanted(int period, const QPoint& place);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    struct Line {
        PeriodHeading* heading;
        ClassBox* classBox;
        RichTextBox* lesson;
        RichTextBox* homework;
    };
    const Line& line(int period) const { return m_lines.at(static_cast<size_t>(period - 1)); }
    QWidget* makeColumnHeadings();
    void addLine(int period, const QStringList& classCodes);

    QScrollArea* m_scroll;
    QGridLayout* m_grid;
    std::vector<Line> m_lines;
    int m_selected = 0;
};
