#pragma once

#include "core/prompts.h"

#include <QString>

class QImage;

/// The formats of pictures that a window saves, each by the ending of the name. A name without one
/// of them gets ".bmp".
enum class SavedFormats { Bitmap, BitmapOrPng };

/// Asks where to save a picture, from `folder` on, and writes it there. Whether to replace a file
/// is asked; one that is replaced stands until the new one is whole. A failure is told in a box.
/// Answers the path; empty where nothing was saved.
QString savePicture(Prompts& prompts, const QString& folder, const QImage& picture,
                    const FileFilter& filter, SavedFormats formats);
