#include "tour/screens/tour_post_its.h"

#include "core/session.h"
#include "frame/screens/main_window.h"
#include "organiser/post_it_rows.h"
#include "organiser/screens/post_it_window.h"
#include "richtext/rtf_writer.h"
#include "tour/screens/tour_pictures.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

void visitPostIts(Session& session, MainWindow& frame, TourPictures& pictures) {
    QTextDocument text;
    text.setHtml(u"<p><b>Thursday</b></p><p>Ring Mrs Okafor about <i>Jordan's</i> glasses</p>"
                 "<p>Order <span style='color:#c00000'>squared paper</span>, 10 packs</p>"
                 "<p>Keys of the hall back to the office</p>"_s);
    const PostIt note = addPostIt(session.CurrentDB, {.memo = richtext::writeDocument(text)});
    frame.open(ToolWindow::Postits, PostItSubject{note.id, std::make_shared<const PostIt>(note)});
    if (auto* window = frame.findChild<PostItWindow*>())
        pictures.save(*window, u"PostitFrm"_s);
    frame.CloseOpenForms();
}
