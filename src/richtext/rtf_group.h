#pragma once

#include "richtext/rtf_words.h"

#include <QByteArray>
#include <QSizeF>
#include <QString>

namespace richtext {

/// What a group that is not text holds.
struct GroupContent {
    QByteArray bytes; ///< what its hexadecimal digits and \bin say
    QString text;     ///< the same place read as text
    QSizeF size;      ///< in twips, as a picture tells its wanted size
    qint32 kind = 0;  ///< a PictureKind
};

/// What is in the first group that `word` opens; groups inside it are left out.
GroupContent contentOf(const QString& source, Word word);

/// Bytes as such a group has them: hexadecimal digits, in lines.
QString hexLines(const QByteArray& bytes);

} // namespace richtext
