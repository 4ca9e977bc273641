#pragma once

#include "planning/weekly_sheets.h"

#include <QWidget>

class QLabel;
class QGridLayout;
class RichTextBox;

/// A lesson of the week: its caption over the box of the lesson, and beside them the homework's.
class LessonSlotWidget : public QWidget {
    Q_OBJECT

public:
    /// `element` numbers the slots of the window from 0. What can't be written back is only shown.
    LessonSlotWidget(int element, const LessonSlot& slot, QWidget* parent = nullptr);
    /// The slot that says that the class has no lessons, or that shows nothing for an empty text.
    explicit LessonSlotWidget(const QString& notice, QWidget* parent = nullptr);

    RichTextBox& lesson() const { return *m_lesson; }
    RichTextBox& homework() const { return *m_homework; }
    SlotTexts texts() const;
    /// The texts, as they were typed, are in the year now.
    void markWritten(const SlotTexts& texts);

    /// Paints the captions of the selected slot.
    void setSelected(bool selected);
    /// Leaves the whole of the slot to the lesson.
    void setMaximised(bool maximised);

signals:
    /// A caption was pressed, or one of the boxes has the focus now.
    void selected();
    void edited();
    /// The popup of a caption is wanted, at a place of the screen.
    void menuWanted(const QPoint& place);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* makeCaption(const QString& name, int element, const QString& text);
    RichTextBox* makeBox(const QString& name, int element, const QString& content);
    void layOut();

    QLabel* m_caption;
    QLabel* m_homeworkCaption;
    RichTextBox* m_lesson;
    RichTextBox* m_homework;
    QGridLayout* m_grid = nullptr;
};
