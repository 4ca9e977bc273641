#pragma once

#include "core/seams.h"
#include "office/word_document.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// The templates of documents: files in the person's own folder, which the person may change. They
/// are copied there when the folder is made.

/// A template of the program's stock.
struct DocumentTemplate {
    QString name;           ///< "IR1.dot"
    QString createQuestion; ///< whether to make the document, once the template is back
};

/// Reads a template as Rich Text Format. Of a file in another format, under the template's name or
/// with an ending of its own (.docx, .ott, ...), the installed word processor makes that first. A
/// missing one is asked about, and brought back from the program's stock if the person agrees.
/// Nothing where there is none in the end, which the person has been told or has decided.
std::optional<QByteArray> ReadTemplate(const Seams& seams, const DocumentPlace& place,
                                       const DocumentTemplate& wanted);
