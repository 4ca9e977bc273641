// schema_doc FILE.md: writes the tables of the schema anew into a page, between its two markers.

#include "store/schema_markdown.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int fail(const QString& reason) {
    std::fprintf(stderr, "schema_doc: %s\n", reason.toLocal8Bit().constData());
    return 1;
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 2)
        return fail(u"usage: schema_doc FILE.md"_s);
    const QString path = QFile::decodeName(argv[1]);
    QFile page(path);
    if (!page.open(QIODevice::ReadOnly))
        return fail(page.errorString());
    QString text = QString::fromUtf8(page.readAll());
    const qsizetype begin = text.indexOf(SchemaSectionBegin);
    const qsizetype end = text.indexOf(SchemaSectionEnd);
    if (begin < 0 || end < begin)
        return fail(u"the page lacks its markers"_s);
    const qsizetype inside = begin + SchemaSectionBegin.size();
    text.replace(inside, end - inside, u"\n\n"_s + schemaMarkdown() + u'\n');
    QSaveFile written(path);
    if (!written.open(QIODevice::WriteOnly) || written.write(text.toUtf8()) < 0 ||
        !written.commit())
        return fail(written.errorString());
    return 0;
}
