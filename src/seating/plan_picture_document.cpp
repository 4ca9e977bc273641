#include "seating/plan_picture_document.h"

#include "core/prompts.h"

#include <QImageReader>

using namespace Qt::StringLiterals;
using richtext::TwipsPerPoint;

namespace {

/// The usual paper with small margins, across where the picture is wider than high.
richtext::Paper planPaper(const QSize& picture) {
    richtext::Paper paper = narrowMargins(usualPaper());
    if (picture.width() > picture.height())
        paper.size.transpose();
    return paper;
}

} // namespace

bool CreatePlanDocument(const Seams& seams, const DocumentPlace& place, const QString& classCode,
                        const QString& picture) {
    WordDocument word(seams, place);
    if (!word.Word_Start())
        return false;
    word.Word_PageSetup(planPaper(QImageReader(picture).size()));
    constexpr int titleSize = 16;
    constexpr int titleHeight = 50 * TwipsPerPoint;
    word.Word_AddPicture(picture, titleHeight); // in front of the title, to whose page it goes
    word.Word_AddTitle(u"Seating Plan for "_s + classCode, titleSize, true, true);
    return word.Word_Finish(u"Seating Plan"_s);
}

void OfferPlanDocument(const Seams& seams, const DocumentPlace& place, const QString& classCode,
                       const QString& picture) {
    const BoxAnswer answer = seams.prompts.msg_Box(
        u"Would you like to place this picture in a Micosoft Word document, ready for printing?"_s,
        YesNoButtons | QuestionIcon, u"Create Word document"_s);
    if (answer == AnswerYes)
        CreatePlanDocument(seams, place, classCode, picture);
}
