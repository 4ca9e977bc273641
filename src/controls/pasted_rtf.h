#pragma once

#include "richtext/html_reader.h"

class QMimeData;

/// What another program hands on, by the clipboard or by dragging, as rich text: rich text itself,
/// a page of HTML, a picture. Empty where it has none of them; then there may be plain text.
QString pastedRtf(const QMimeData& source, richtext::HtmlGround ground);

/// Whether there is something to paste, plain text or other.
bool canBePasted(const QMimeData& source);

/// Under this name the program hands on rich text.
inline const QString RtfType = QStringLiteral("text/rtf");
