#include "classes/screens/photo_actions.h"

#include "classes/class_desk.h"
#include "classes/class_photos.h"
#include "classes/pupil_photo.h"
#include "classes/screens/capture_window.h"
#include "classes/screens/photo_box.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/shell.h"
#include "store/engine/error.h"

using namespace Qt::StringLiterals;

namespace {

QImage captureImage(Session& session) {
    const QImage screen = session.GetSeams().shell.CaptureScreen();
    if (!screen.isNull())
        return CaptureWindow(screen).capture();
    session.GetSeams().prompts.PlainBox(
        u"The desktop doesn't give a picture of the screen. Please load the photo from a file."_s,
        OkButton | WarningIcon, u"Capture Image"_s);
    return {};
}

} // namespace

void connectPhotoBox(PhotoBox& box, Session& session, ClassDesk& desk,
                     const std::function<void()>& changed) {
    Prompts& prompts = session.GetSeams().prompts;
    const auto onPupil = [&box, &desk, changed](void (PhotoBox::*wanted)(), auto act) {
        QObject::connect(&box, wanted, &box, [&desk, changed, act] {
            if (desk.currentPupil() && act(*desk.currentPupil()))
                changed();
        });
    };
    const auto folder = [&session] { return session.FolderDefaults[OpenFolder].folder; };
    onPupil(&PhotoBox::captureWanted, [&session, &desk, &prompts](qint64 pupil) {
        return storePhoto(session.CurrentDB, desk.classCode(), pupil, captureImage(session),
                          prompts);
    });
    onPupil(&PhotoBox::fileWanted, [&session, &desk, &prompts, folder](qint64 pupil) {
        return loadPhotoFromFile(session.CurrentDB, desk.classCode(), pupil, folder(), prompts);
    });
    onPupil(&PhotoBox::filesWanted, [&session, &desk, &prompts](qint64) {
        return loadPhotosFromFolder(session.CurrentDB, desk.classCode(), prompts);
    });
    onPupil(&PhotoBox::stripWanted, [&session, &desk, &prompts, folder](qint64) {
        return loadClassPictures(session.CurrentDB, desk.classCode(), desk.sheet().pupils(),
                                 folder(), prompts);
    });
    onPupil(&PhotoBox::removeWanted, [&session, &desk, &prompts](qint64 pupil) {
        return removePhoto(session.CurrentDB, desk.classCode(), pupil, prompts);
    });
    onPupil(&PhotoBox::removeAllWanted, [&session, &desk, &prompts](qint64) {
        return removePhotos(session.CurrentDB, desk.classCode(), desk.sheet().pupils(), prompts);
    });
}

void showPhoto(PhotoBox& box, Session& session, const ClassDesk& desk) {
    QImage photo;
    try {
        if (desk.currentPupil())
            photo = pupilPhoto(session.CurrentDB, desk.classCode(), *desk.currentPupil());
    } catch (const dao::EngineError&) {
        photo = {}; // a photo that can't be read is none
    }
    box.setPhoto(photo);
}
