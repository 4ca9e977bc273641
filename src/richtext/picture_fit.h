#pragma once

#include <QString>

namespace richtext {

/// A rich text with its pictures scaled down so that it has at least `excess` characters fewer,
/// each picture by its share. Empty where they cannot be made that small, or are not pictures that
/// can be read.
QString withSmallerPictures(const QString& rtf, qsizetype excess);

} // namespace richtext
