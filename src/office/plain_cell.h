#pragma once

#include <QString>

/// The plain text of rich text, for a cell of a table in a document: its lines divided by '\n';
/// objects and pictures are left out.
QString plainCellText(const QString& rtf);
