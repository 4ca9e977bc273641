#pragma once

#include <QString>

class QTextCursor;
class QTextDocument;

namespace richtext {

/// The document as rich text, in the one dialect that the program writes:
///
///     {\rtf1\ansi\ansicpg1252\deff0{\fonttbl{\f0\fnil Arial;}}
///     {\colortbl ;\red255\green255\blue0;}
///     \pard\plain\f0\fs20 first paragraph
///     \par \pard\plain\f0\fs20 the second with a \highlight1 mark\highlight0 .
///     \par }
///
/// Each paragraph is headed by "\pard\plain\fN\fsM" and closed by a line break and "\par "; a
/// highlight ends with its paragraph at the latest; the colour table holds each colour once, in the
/// order of use. Objects and pictures are written as they were read. What was written and is read
/// again is the same document, and writing that gives the same text.
QString writeDocument(const QTextDocument& document);

/// The selection as a document of its own, in the same dialect.
QString writeFragment(const QTextCursor& selection);

} // namespace richtext
