#pragma once

#include <functional>

class ClassDesk;
class PhotoBox;
class Session;

/// Lets a photo box do for the desk's current pupil, and for all pupils shown, what its menu and
/// keys say. `changed` is called when photos have changed.
void connectPhotoBox(PhotoBox& box, Session& session, ClassDesk& desk,
                     const std::function<void()>& changed);

/// Shows the photo of the desk's current pupil; a failure shows none.
void showPhoto(PhotoBox& box, Session& session, const ClassDesk& desk);
