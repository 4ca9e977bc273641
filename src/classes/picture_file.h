#pragma once

#include <QImage>
#include <QSize>
#include <QString>

/// A picture file that somebody has chosen, which may be anything. Every format that the toolkit
/// reads is read, whatever the file's ending says, and turned as the camera was held. One of which
/// a part is missing is not.

/// More pixels than this (a good deal more than a telephone's camera makes) are not read, since
/// they would fill the memory.
inline constexpr qint64 MostPicturePixels = 64'000'000;

struct PictureFile {
    QImage picture;  ///< null where it could not be read
    QString failure; ///< then why, as a sentence for the person
};

/// Reads a picture. With `enough`, a larger one may be read at a size that still covers so many
/// pixels each way, which is quicker.
PictureFile readPictureFile(const QString& path, QSize enough = {});
