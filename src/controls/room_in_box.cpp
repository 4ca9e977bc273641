#include "controls/room_in_box.h"

#include "controls/rich_text_box.h"
#include "core/prompts.h"
#include "richtext/picture_fit.h"

#include <QLocale>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

const QString title = u"Too much data"_s;

QString reason(const RichTextBox& box, const QString& what, qsizetype excess) {
    const QLocale locale;
    return u"%1 does not fit into this box: %2.\n\nWith it, the text and its formatting would "
           "come to %3 characters, and %4 can be saved."_s.arg(
               what, box.accessibleName(), locale.toString(box.limit() + excess),
               locale.toString(box.limit()));
}

} // namespace

void tellNoRoom(Prompts& prompts, const RichTextBox& box, const QString& what, qsizetype excess) {
    prompts.PlainBox(reason(box, what, excess), OkButton | WarningIcon, title);
}

void offerSmallerPictures(Prompts& prompts, RichTextBox& box, const QString& rtf) {
    const QPointer<RichTextBox> kept = &box;
    const qsizetype excess = box.excessWith(rtf);
    const QString smaller = richtext::withSmallerPictures(rtf, excess);
    if (smaller.isEmpty() || box.excessWith(smaller) > 0)
        return tellNoRoom(prompts, box, u"What was pasted"_s, excess);
    const auto answer =
        prompts.PlainBox(reason(box, u"The picture"_s, excess) +
                             u"\n\nDo you wish to have it scaled down, so that it fits?"_s,
                         YesNoButtons | QuestionIcon, title);
    if (kept && answer == AnswerYes)
        box.setSelectedRtf(smaller);
}
