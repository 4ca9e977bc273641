#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;

namespace richtext {

/// Reads rich text (RTF, as a memo field holds it) into a document, in place of what that holds. A
/// text that does not begin with "{\rtf" is taken as plain text.
///
/// No text is refused and none makes it fail: what is damaged is read as far as it makes sense.
/// Characters, fonts, sizes, colours, highlights, paragraphs and lists become the document's
/// own; a table is read as text, cells divided by tabs; an object or a picture becomes one object
/// character that keeps its source (objects.h). What the person cannot see in the
/// original (headers, hidden text, comments) is left out. The undo history is empty afterwards.
void readDocument(const QString& rtf, QTextDocument& document);

/// Puts rich text at the cursor, in place of its selection, as one undo step; the cursor stands
/// behind it afterwards. The fragment's first paragraph joins the one that it comes
/// into, and gives it its format only where that is empty.
void insertFragment(QTextCursor& at, const QString& rtf);

} // namespace richtext
