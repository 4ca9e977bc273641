#pragma once

#include "store/engine/database.h"

#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

class Prompts;

/// How photos get into a class and out of it. Pictures are read from every format that the toolkit
/// reads, and stretched to a photo. Operations that ask tell what failed, answer whether something
/// has changed, and leave all photos as they were where it failed.

/// The usual photo, in pixels. One is kept at twice that size where its picture has the detail, so
/// that it is sharp on a fine screen too.
inline constexpr QSize StandardPhoto{67, 87};

/// A picture stretched to a photo; white where it was transparent.
QImage toPhoto(const QImage& picture);

/// Keeps a picture as a pupil's photo. Raises what the engine raises.
void ValidatePicture(const dao::Database& database, const QString& classCode, qint64 pupil,
                     const QImage& picture);

/// "Load from file...": asks for a picture for a pupil.
bool loadPhotoFromFile(const dao::Database& database, const QString& classCode, qint64 pupil,
                       const QString& startFolder, Prompts& prompts);
/// Asks for one picture with the photos of a whole class side by side, each of the standard size
/// (or a whole multiple of it, by the picture's height), and gives them to pupils in their order.
/// Where it is too short the last get an empty photo.
bool loadClassPictures(const dao::Database& database, const QString& classCode,
                       const QList<qint64>& pupils, const QString& startFolder, Prompts& prompts);
/// Asks for the grade column that names each pupil's picture file, without ".bmp", and for the
/// folder of the files. Tells at the end how many are missing.
bool loadPhotosFromFolder(const dao::Database& database, const QString& classCode,
                          Prompts& prompts);

/// Keeps what was captured from the screen.
bool storePhoto(const dao::Database& database, const QString& classCode, qint64 pupil,
                const QImage& picture, Prompts& prompts);

/// Ask, and remove photos.
bool removePhoto(const dao::Database& database, const QString& classCode, qint64 pupil,
                 Prompts& prompts);
bool removePhotos(const dao::Database& database, const QString& classCode,
                  const QList<qint64>& pupils, Prompts& prompts);
