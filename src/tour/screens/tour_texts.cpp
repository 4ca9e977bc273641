#include "tour/screens/tour_texts.h"

#include "richtext/rtf_writer.h"

#include <QTextDocument>

QString rtfOf(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return richtext::writeDocument(document);
}
