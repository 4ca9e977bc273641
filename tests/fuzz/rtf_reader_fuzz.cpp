// Reads any bytes as rich text on both roads, writes the document and reads that again. Start it on
// copies of tests/data/rtf/*.rtf.

#include "richtext/highlight.h"
#include "richtext/objects.h"
#include "richtext/pictures.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <QTextDocument>

#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString rtf = QString::fromLatin1(reinterpret_cast<const char*>(data), qsizetype(size));
    richtext::objectOf(rtf);
    richtext::pictureOf(rtf);
    richtext::ParseColourTable(rtf);
    QTextDocument document;
    richtext::readDocument(rtf, document);
    require(document.toPlainText() == richtext::plainText(rtf));
    const QString written = richtext::writeDocument(document);
    QTextDocument again;
    richtext::readDocument(written, again);
    require(richtext::writeDocument(again) == written);
    require(richtext::plainText(written) == document.toPlainText());
    return 0;
}
