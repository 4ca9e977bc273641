#include "richtext/plain_text.h"

#include "richtext/rtf_parser.h"
#include "richtext/rtf_text.h"

namespace richtext {

namespace {

class PlainSink : public TextSink {
public:
    void addText(QStringView text) override {
        startParagraph();
        m_text += text;
    }
    void endParagraph() override {
        startParagraph();
        m_isBetween = true;
    }
    void addObject(QStringView, bool) override {
        startParagraph();
        m_text += QChar(QChar::ObjectReplacementCharacter);
    }
    QString& text() { return m_text; }

private:
    /// A paragraph's end begins a new one only where something follows.
    void startParagraph() {
        if (m_isBetween)
            m_text += u'\n';
        m_isBetween = false;
    }

    QString m_text;
    bool m_isBetween = false;
};

/// As QTextDocument::toPlainText writes them.
QString plain(QString text) {
    text.replace(QChar(QChar::LineSeparator), u'\n');
    text.replace(QChar(QChar::Nbsp), u' ');
    return text;
}

} // namespace

QString plainText(const QString& rtf) {
    if (!isRichText(rtf))
        return plain(cleanedLines(rtf));
    PlainSink sink;
    sink.text().reserve(rtf.size() / 2);
    RtfParser(rtf, sink).parse();
    return plain(std::move(sink.text()));
}

bool isEmptyText(const QString& plain) {
    return plain.isEmpty() || plain == u" " || plain == u"\n" || plain == u"\r\n";
}

} // namespace richtext
