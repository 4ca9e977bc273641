#include "richtext/rtf_reader.h"

#include "richtext/plain_text.h"

#include <QTextCursor>
#include <QTextDocument>

namespace richtext {

void readDocument(const QString& rtf, QTextDocument& document) {
    document.setPlainText(plainText(rtf));
}

void insertFragment(QTextCursor& at, const QString& rtf) {
    at.insertText(plainText(rtf));
}

} // namespace richtext
