#include "classes/class_photos.h"

#include "classes/picture_file.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QBuffer>
#include <QDir>
#include <QHash>
#include <QImageReader>
#include <QPainter>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString LoadTitle = u" Load Picture:"_s;
const QString StripTitle = u" Load Class Pictures From:"_s;
const QString ImportTitle = u"Picture Import Complete"_s;
const QString CaptureTitle = u"Capture Image"_s;

/// The largest photo that is kept, and as much as is read of a picture to make one: twice as much
/// again, so that the reduction is fine.
constexpr QSize FinePhoto = StandardPhoto * 2;
constexpr QSize EnoughForPhoto = FinePhoto * 2;

/// An ordinary bitmap file: what older programs keep in `Photo` too.
QByteArray photoBytes(const QImage& photo) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    photo.save(&buffer, "BMP");
    return bytes;
}

void writePhoto(const dao::Database& database, const QString& classCode, qint64 pupil,
                const QByteArray& bytes) {
    dao::Recordset record = database.OpenRecordset(u"SELECT Photo FROM %1 WHERE ID = %2;"_s.arg(
        dao::writeName(classTable(classCode)), QString::number(pupil)));
    if (record.EOF_())
        return;
    record.Edit();
    record.SetCollect(u"Photo", bytes);
    record.Update();
    record.Close();
}

/// Does work over photos whole or not at all; a failure is told, under the title of the work.
bool changePhotos(const dao::Database& database, const QString& title, Prompts& prompts,
                  const std::function<void()>& work) {
    return tryTelling(prompts, {title}, [&] {
        dao::Transaction transaction(database);
        work();
        transaction.commit();
    });
}

QString allPictures() {
    QStringList patterns;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        patterns += u"*."_s + QString::fromLatin1(format);
    return patterns.join(u';');
}

/// Asks for a picture and reads it; a null one where it was cancelled or, told, can't be read.
QImage askPicture(const QString& title, const QString& startFolder, QSize enough,
                  Prompts& prompts) {
    const QString file = prompts.OpenFileDialog(
        title, {{u"All pictures"_s, allPictures()}, {u"Picture (*.bmp)"_s, u"*.bmp"_s}},
        startFolder, PathMustExist | FileMustExist | ExplorerStyle, false);
    if (file.isEmpty())
        return {};
    const PictureFile read = readPictureFile(file, enough);
    if (read.picture.isNull())
        prompts.PlainBox(read.failure, OkButton | WarningIcon, title);
    return read.picture;
}

/// The size of each pupil's part: the standard photo, or a whole multiple of it where the strip is
/// that high.
QSize partSize(const QImage& strip) {
    const bool isMultiple = strip.height() % StandardPhoto.height() == 0;
    return StandardPhoto * (isMultiple ? strip.height() / StandardPhoto.height() : 1);
}

/// White where the strip ends.
QImage partOfStrip(const QImage& strip, int place) {
    const QSize size = partSize(strip);
    QImage part(size, QImage::Format_RGB32);
    part.fill(Qt::white);
    QPainter(&part).drawImage(0, 0, strip, place * size.width(), 0, size.width(), size.height());
    return part;
}

/// A file's name for a comparison without regard to case, or to how an accent is put together.
QString foldedName(const QString& name) {
    return name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

/// The files of a folder by their names, and by their folded names where no other file has that
/// very name.
QHash<QString, QString> filesIn(const QString& folder) {
    const QDir place(folder);
    const QStringList names = place.entryList(QDir::Files, QDir::Name);
    QHash<QString, QString> files;
    for (const QString& name : names)
        files.insert(name, place.filePath(name));
    for (const QString& name : names) {
        if (!files.contains(foldedName(name)))
            files.insert(foldedName(name), place.filePath(name));
    }
    return files;
}

/// The picture that a grade names: NAME.bmp, else one of that name in another format. A grade is
/// what anybody typed: it is looked up among the folder's files, and so never leads out of it.
QImage pictureNamed(const QString& grade, const QHash<QString, QString>& files) {
    QStringList formats{u"bmp"_s};
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        formats += QString::fromLatin1(format);
    for (const QString& format : std::as_const(formats)) {
        const QString name = grade + u'.' + format;
        const QString file = files.value(name, files.value(foldedName(name)));
        if (file.isEmpty())
            continue;
        const PictureFile read = readPictureFile(file, EnoughForPhoto);
        if (!read.picture.isNull())
            return read.picture;
    }
    return {};
}

QString askFileNameColumn(const dao::Database& database, const QString& classCode,
                          Prompts& prompts) {
    OneItemRequest request;
    request.text =
        u"One of the Grade Columns for this class should identify the file names each pupils "
        "picture file. (*.bmp) .Please select which grades column contains this information. :"_s;
    request.title = u"Grade column titles for "_s + classCode;
    for (const dao::Field& field : database.TableDefs()[marksTable(classCode)].Fields())
        request.items += field.Name;
    const std::optional<int> item = prompts.ReturnString(request);
    return item ? request.items[*item] : QString();
}

/// Gives all pupils their photos; answers how many files are missing.
int readPhotoFiles(const dao::Database& database, const QString& classCode, const QString& column,
                   const QString& folder) {
    const QHash<QString, QString> files = filesIn(folder);
    dao::Recordset grades =
        database.OpenRecordset(u"SELECT %1.ID,%2.%3 FROM %1 INNER JOIN %2 ON %1.ID = %2.ID"_s.arg(
                                   dao::writeName(classTable(classCode)),
                                   dao::writeName(marksTable(classCode)), dao::writeName(column)),
                               dao::RecordsetType::Snapshot);
    int missing = 0;
    for (; !grades.EOF_(); grades.MoveNext()) {
        const QString grade = grades.Collect(1).toText();
        if (grade.isEmpty())
            continue;
        const QImage picture = pictureNamed(grade, files);
        if (picture.isNull())
            ++missing;
        else
            ValidatePicture(database, classCode, grades.Collect(0).toInteger(), picture);
    }
    grades.Close();
    return missing;
}

} // namespace

QImage toPhoto(const QImage& picture) {
    const bool isFine =
        picture.width() >= FinePhoto.width() && picture.height() >= FinePhoto.height();
    QImage stretched = picture.scaled(isFine ? FinePhoto : StandardPhoto, Qt::IgnoreAspectRatio,
                                      Qt::SmoothTransformation);
    stretched.setDevicePixelRatio(1);
    QImage photo(stretched.size(), QImage::Format_RGB888);
    photo.fill(Qt::white); // a bitmap shows nothing through
    QPainter(&photo).drawImage(0, 0, stretched);
    return photo;
}

void ValidatePicture(const dao::Database& database, const QString& classCode, qint64 pupil,
                     const QImage& picture) {
    writePhoto(database, classCode, pupil, photoBytes(toPhoto(picture)));
}

bool storePhoto(const dao::Database& database, const QString& classCode, qint64 pupil,
                const QImage& picture, Prompts& prompts) {
    return !picture.isNull() && changePhotos(database, CaptureTitle, prompts, [&] {
        ValidatePicture(database, classCode, pupil, picture);
    });
}

bool loadPhotoFromFile(const dao::Database& database, const QString& classCode, qint64 pupil,
                       const QString& startFolder, Prompts& prompts) {
    const QImage picture = askPicture(LoadTitle, startFolder, EnoughForPhoto, prompts);
    return !picture.isNull() && changePhotos(database, LoadTitle, prompts, [&] {
        ValidatePicture(database, classCode, pupil, picture);
    });
}

bool loadClassPictures(const dao::Database& database, const QString& classCode,
                       const QList<qint64>& pupils, const QString& startFolder, Prompts& prompts) {
    const QImage strip = askPicture(StripTitle, startFolder, {}, prompts);
    return !strip.isNull() && changePhotos(database, StripTitle, prompts, [&] {
        for (int place = 0; place < pupils.size(); ++place)
            ValidatePicture(database, classCode, pupils[place], partOfStrip(strip, place));
    });
}

bool loadPhotosFromFolder(const dao::Database& database, const QString& classCode,
                          Prompts& prompts) {
    const QString column = askFileNameColumn(database, classCode, prompts);
    if (column.isEmpty())
        return false;
    const QString folder =
        prompts.ChooseFolder(u"Select the folder where the picture files are located:"_s);
    if (folder.isEmpty())
        return false;
    int missing = 0;
    const bool isDone = changePhotos(database, ImportTitle, prompts, [&] {
        missing = readPhotoFiles(database, classCode, column, folder);
    });
    if (isDone && missing > 0)
        prompts.PlainBox(u"%1 files could not be found, please load these manually."_s.arg(missing),
                         OkButton, ImportTitle);
    return isDone;
}

bool removePhoto(const dao::Database& database, const QString& classCode, qint64 pupil,
                 Prompts& prompts) {
    const QString title = u"Delete Photo"_s;
    return prompts.PlainBox(u"Remove this image from the database?"_s, YesNoButtons | QuestionIcon,
                            title) == AnswerYes &&
           changePhotos(database, title, prompts,
                        [&] { writePhoto(database, classCode, pupil, QByteArray()); });
}

bool removePhotos(const dao::Database& database, const QString& classCode,
                  const QList<qint64>& pupils, Prompts& prompts) {
    const QString title = u"Delete Photos"_s;
    return prompts.PlainBox(u"Remove ALL photos for this class?"_s, YesNoButtons | QuestionIcon,
                            title) == AnswerYes &&
           changePhotos(database, title, prompts, [&] {
               for (const qint64 pupil : pupils)
                   writePhoto(database, classCode, pupil, QByteArray());
           });
}
