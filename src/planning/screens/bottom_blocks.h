#pragma once

#include "planning/sheet_fields.h"

#include <QWidget>

#include <array>

class RichTextBox;

/// The three blocks below the periods of a sheet that belong to the whole day: dinner time, after
/// school, notes.
class BottomBlocks : public QWidget {
    Q_OBJECT

public:
    static constexpr std::array Blocks{SheetBox::Dinner, SheetBox::AfterSchool, SheetBox::Notes};

    explicit BottomBlocks(QWidget* parent = nullptr);

    RichTextBox& box(SheetBox block) const { return *m_boxes.at(static_cast<size_t>(block)); }
    void setHasSheet(bool hasSheet);
    /// What the calendar of events has for the day.
    void showEvents(const QString& events);

private:
    std::array<RichTextBox*, Blocks.size()> m_boxes{};
};
