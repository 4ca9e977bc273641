#pragma once

#include <QString>

class Prompts;
class QImage;

/// Asks where to save a picture of the timetable, from `folder` on, and writes it there as a
/// bitmap.
/// ".bmp" is added where it is missing; whether to replace a file is asked. A file that is replaced
/// stands until the new one is whole. A failure is told in a box.
void SaveTimetablePicture(Prompts& prompts, const QString& folder, const QImage& picture);
