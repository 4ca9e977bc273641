#include "planning/screens/bottom_blocks.h"

#include "controls/rich_text_box.h"
#include "planning/screens/sheet_paper.h"

#include <QGridLayout>
#include <QLabel>
#include <QTextDocument>

using namespace Qt::StringLiterals;

BottomBlocks::BottomBlocks(QWidget* parent) : QWidget(parent) {
    constexpr int leastHeight = 56;
    constexpr int gap = 3;
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins({});
    grid->setSpacing(gap);
    grid->setRowStretch(1, 1);
    for (const SheetBox block : Blocks) {
        const auto column = static_cast<int>(block);
        auto* box = new RichTextBox(blockCaption(block));
        box->setObjectName(u"Text4(%1)"_s.arg(column));
        box->setMinimumHeight(leastHeight);
        box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
        m_boxes.at(static_cast<size_t>(column)) = box;
        grid->addWidget(new QLabel(blockCaption(block)), 0, column);
        grid->addWidget(box, 1, column);
        grid->setColumnStretch(column, 1);
    }
}

void BottomBlocks::setHasSheet(bool hasSheet) {
    for (RichTextBox* box : m_boxes) {
        box->setEnabled(hasSheet);
        box->setPaper(sheetPaper(hasSheet));
    }
}

void BottomBlocks::showEvents(const QString& events) {
    // A tool tip that looks like HTML would be shown as such.
    const QString tip = Qt::mightBeRichText(events) ? Qt::convertFromPlainText(events) : events;
    for (RichTextBox* box : m_boxes) {
        box->setToolTip(tip);
        box->setAccessibleDescription(events);
    }
}
