#pragma once

#include <QByteArrayView>
#include <QString>

namespace richtext {

constexpr int westernCodePage = 1252;

/// A code page's number, 1252 for one that is not known.
int knownCodePage(qint32 number);

/// The code page of a font whose character set (the number behind \fcharset) is told; `usual` where
/// the set says no more than the document does.
int codePageOfCharset(qint32 charset, int usual);

/// Whether a character may take more than one byte in the code page.
bool isMultiByte(int codePage);

/// Bytes as text. What the code page does not know becomes U+FFFD or a control character.
QString decode(int codePage, QByteArrayView bytes);

/// One byte of a code page of single bytes.
char16_t decode(int codePage, uchar byte);

/// The byte of a character in code page 1252, 0 where it has none.
uchar westernByte(char16_t character);

} // namespace richtext
