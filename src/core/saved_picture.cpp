#include "core/saved_picture.h"

#include "core/file_state.h"
#include "core/whole_file.h"

#include <QImage>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

bool isPng(const QString& path) {
    return path.endsWith(u".png"_s, Qt::CaseInsensitive);
}

/// The path to write to; empty when it was called off.
QString askForPath(Prompts& prompts, const QString& folder, const FileFilter& filter,
                   SavedFormats formats) {
    QString path = prompts.OpenFileDialog(u" Save file as :"_s, {filter}, folder,
                                          ExplorerStyle | PathMustExist, true);
    if (path.isEmpty())
        return {};
    if (!path.endsWith(u".bmp"_s, Qt::CaseInsensitive) &&
        (formats == SavedFormats::Bitmap || !isPng(path)))
        path += u".bmp"_s;
    const bool mayWrite =
        !FileExists(path) ||
        prompts.msg_Box(u"This file already exists!\n\nDo you want to overwrite it?"_s,
                        YesNoButtons | QuestionIcon, u"File already exists"_s, {}) == AnswerYes;
    return mayWrite ? path : QString();
}

} // namespace

QString savePicture(Prompts& prompts, const QString& folder, const QImage& picture,
                    const FileFilter& filter, SavedFormats formats) {
    const QString path = askForPath(prompts, folder, filter, formats);
    if (path.isEmpty())
        return {};
    QSaveFile file(path);
    const bool asPng = formats == SavedFormats::BitmapOrPng && isPng(path);
    if (file.open(QIODevice::WriteOnly) && picture.save(&file, asPng ? "PNG" : "BMP") &&
        commitWhole(file))
        return path;
    prompts.PlainBox(u"The picture could not be saved:\n\n%1"_s.arg(file.errorString()),
                     OkButton | CriticalIcon, u"Save Picture Error"_s);
    return {};
}
