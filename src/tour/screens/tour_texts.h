#pragma once

#include <QString>

/// The rich text, as a field of the year holds it, of what a page of the tour writes as HTML.
QString rtfOf(const QString& html);
