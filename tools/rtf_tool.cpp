// rtf_tool plain|rewrite FILE
//
// Reads a file of rich text and prints its plain text, or the document written again in the
// program's own dialect. A file that is not rich text is taken as plain text.

#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <QFile>
#include <QTextDocument>

#include <cstdio>

namespace {

QString rewritten(const QString& rtf) {
    QTextDocument document;
    richtext::readDocument(rtf, document);
    return richtext::writeDocument(document);
}

int usage() {
    std::fputs("usage: rtf_tool plain|rewrite FILE\n", stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3)
        return usage();
    const QByteArrayView what(argv[1]);
    QFile file(QFile::decodeName(argv[2]));
    if (what != "plain" && what != "rewrite")
        return usage();
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s: %s\n", argv[2], qPrintable(file.errorString()));
        return 1;
    }
    // Of rich text, a character a byte: what they stand for is its own matter.
    const QByteArray bytes = file.readAll();
    const QString rtf =
        bytes.startsWith("{\\rtf") ? QString::fromLatin1(bytes) : QString::fromUtf8(bytes);
    const QByteArray answer =
        what == "plain" ? richtext::plainText(rtf).toUtf8() + '\n' : rewritten(rtf).toLatin1();
    std::fwrite(answer.constData(), 1, static_cast<size_t>(answer.size()), stdout);
    return 0;
}
