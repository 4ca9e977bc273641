#include "planning/screens/lesson_slot.h"

#include "controls/colours.h"
#include "controls/rich_text_box.h"
#include "store/row_binding.h"

#include <QContextMenuEvent>
#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

enum SlotColumn { SlotLessonColumn, SlotHomeworkColumn };
constexpr int SlotLessonShare = 7;
constexpr int SlotHomeworkShare = 3;
constexpr int SlotLeastHeight = 96;
constexpr int NoticeSize = 24; ///< points

QString inWords(const QString& content, const QString& caption) {
    return caption.isEmpty() ? content : content + u", "_s + caption;
}

} // namespace

LessonSlotWidget::LessonSlotWidget(int element, const LessonSlot& slot, QWidget* parent)
    : QWidget(parent)
    , m_caption(makeCaption(u"lb1"_s, element, slot.caption))
    , m_homeworkCaption(makeCaption(u"HWlb"_s, element, u"Homework"_s))
    , m_lesson(makeBox(u"RTF"_s, element, inWords(u"Lesson"_s, slot.caption)))
    , m_homework(makeBox(u"HWrtf"_s, element, inWords(u"Homework"_s, slot.caption))) {
    layOut();
    m_lesson->setRtf(slot.lesson);
    m_lesson->setLimit(LargestBoundText);
    m_lesson->setNotice(longLessonNotice(slot.lesson));
    m_homework->setRtf(slot.homework);
    for (RichTextBox* box : {m_lesson, m_homework}) {
        box->setReadOnly(!isWritable(slot));
        if (box->isReadOnly())
            box->setToolTip(u"This period can only be changed on the daily planning sheet"_s);
        connect(box, &RichTextBox::entered, this, &LessonSlotWidget::selected);
        connect(box, &RichTextBox::edited, this, &LessonSlotWidget::edited);
    }
    for (QLabel* caption : {m_caption, m_homeworkCaption}) {
        caption->setToolTip(u"Right-Click for Options"_s);
        caption->installEventFilter(this);
    }
    setSelected(false);
}

LessonSlotWidget::LessonSlotWidget(const QString& notice, QWidget* parent)
    : QWidget(parent)
    , m_caption(makeCaption(u"lb1"_s, 0, {}))
    , m_homeworkCaption(makeCaption(u"HWlb"_s, 0, {}))
    , m_lesson(makeBox(u"RTF"_s, 0, u"Lesson"_s))
    , m_homework(makeBox(u"HWrtf"_s, 0, u"Homework"_s)) {
    layOut();
    QFont large = m_lesson->font();
    large.setPointSize(NoticeSize);
    m_lesson->setCurrentFont(large);
    m_lesson->setSelectedText(notice);
    m_lesson->setDataChanged(false);
    for (RichTextBox* box : {m_lesson, m_homework})
        box->setReadOnly(true);
}

QLabel* LessonSlotWidget::makeCaption(const QString& name, int element, const QString& text) {
    auto* caption = new QLabel(text);
    caption->setObjectName(u"%1(%2)"_s.arg(name).arg(element));
    caption->setMargin(2);
    caption->setAutoFillBackground(true);
    caption->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return caption;
}

RichTextBox* LessonSlotWidget::makeBox(const QString& name, int element, const QString& content) {
    auto* box = new RichTextBox(content);
    box->setObjectName(u"%1(%2)"_s.arg(name).arg(element));
    box->setMinimumHeight(SlotLeastHeight);
    // What it would like to have does not count: the slots share what there is.
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    return box;
}

void LessonSlotWidget::layOut() {
    m_grid = new QGridLayout(this);
    m_grid->setContentsMargins({});
    m_grid->setHorizontalSpacing(3);
    m_grid->setVerticalSpacing(0);
    m_grid->setColumnStretch(SlotLessonColumn, SlotLessonShare);
    m_grid->setColumnStretch(SlotHomeworkColumn, SlotHomeworkShare);
    m_grid->setRowStretch(1, 1);
    m_grid->addWidget(m_caption, 0, SlotLessonColumn);
    m_grid->addWidget(m_homeworkCaption, 0, SlotHomeworkColumn);
    m_grid->addWidget(m_lesson, 1, SlotLessonColumn);
    m_grid->addWidget(m_homework, 1, SlotHomeworkColumn);
}

SlotTexts LessonSlotWidget::texts() const {
    const auto typed = [](const RichTextBox& box) {
        return box.dataChanged() ? std::optional(box.rtf()) : std::nullopt;
    };
    return {typed(*m_lesson), typed(*m_homework)};
}

void LessonSlotWidget::markWritten(const SlotTexts& texts) {
    if (texts.lesson)
        m_lesson->setNotice(longLessonNotice(*texts.lesson));
    m_lesson->setDataChanged(false);
    m_homework->setDataChanged(false);
}

void LessonSlotWidget::setSelected(bool isSelected) {
    for (QLabel* caption : {m_caption, m_homeworkCaption}) {
        QPalette readable = palette();
        readable.setColor(QPalette::HighlightedText,
                          textColourOn(readable.color(QPalette::Highlight),
                                       readable.color(QPalette::HighlightedText)));
        caption->setPalette(readable);
        caption->setBackgroundRole(isSelected ? QPalette::Highlight : QPalette::Button);
        caption->setForegroundRole(isSelected ? QPalette::HighlightedText : QPalette::ButtonText);
    }
}

void LessonSlotWidget::setMaximised(bool maximised) {
    m_homeworkCaption->setVisible(!maximised);
    m_homework->setVisible(!maximised);
    m_grid->setColumnStretch(SlotHomeworkColumn, maximised ? 0 : SlotHomeworkShare);
}

bool LessonSlotWidget::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        emit selected();
        return true;
    }
    if (event->type() == QEvent::ContextMenu) {
        emit selected();
        emit menuWanted(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
