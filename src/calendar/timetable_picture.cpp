#include "calendar/timetable_picture.h"

#include "core/file_state.h"
#include "core/prompts.h"

#include <QImage>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

/// The path to write to; empty when it was called off.
QString askForPath(Prompts& prompts, const QString& folder) {
    QString path = prompts.OpenFileDialog(u" Save file as :"_s, {{u"Bitmap (*.bmp)"_s, u"*.bmp"_s}},
                                          folder, ExplorerStyle | PathMustExist, true);
    if (path.isEmpty())
        return {};
    if (!path.endsWith(u".bmp"_s, Qt::CaseInsensitive))
        path += u".bmp"_s;
    const bool mayWrite =
        !FileExists(path) ||
        prompts.msg_Box(u"This file already exists!\n\nDo you want to overwrite it?"_s,
                        YesNoButtons | QuestionIcon, u"File already exists"_s, {}) == AnswerYes;
    return mayWrite ? path : QString();
}

} // namespace

void SaveTimetablePicture(Prompts& prompts, const QString& folder, const QImage& picture) {
    const QString path = askForPath(prompts, folder);
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && picture.save(&file, "BMP") && file.commit())
        return;
    prompts.PlainBox(u"The picture could not be saved:\n\n%1"_s.arg(file.errorString()),
                     OkButton | CriticalIcon, u"Save Picture Error"_s);
}
