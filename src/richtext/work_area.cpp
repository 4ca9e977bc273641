#include "richtext/work_area.h"

#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace richtext {

QString appendFragment(const QString& rtf, const QString& fragment) {
    if (rtf.isEmpty())
        return fragment;
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    readDocument(rtf, document);
    QTextCursor end(&document);
    end.movePosition(QTextCursor::End);
    insertFragment(end, fragment);
    return writeDocument(document);
}

QString removeText(const QString& rtf, qsizetype position, qsizetype length) {
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    readDocument(rtf, document);
    const qsizetype last = document.characterCount() - 1;
    if (position < 0 || position >= last || length <= 0)
        return rtf;
    QTextCursor range(&document);
    range.setPosition(static_cast<int>(position));
    range.setPosition(static_cast<int>(position + std::min(length, last - position)),
                      QTextCursor::KeepAnchor);
    range.removeSelectedText();
    return writeDocument(document);
}

} // namespace richtext
