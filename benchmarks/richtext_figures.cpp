// Rich text: into a document, and its plain text straight from the source.

#include "figures.h"

#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <QRandomGenerator>
#include <QTextCursor>
#include <QTextDocument>

#include <cstring>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype textSize = 50 * 1024;
constexpr quint32 seed = 20260901;

/// A text as teachers write it: paragraphs of a few sentences, every few words in another format.
QString mixedText() {
    static const QString words[] = {
        u"fractions"_s, u"the"_s,      u"worksheet"_s, u"page"_s,      u"of"_s,
        u"groups"_s,    u"starter:"_s, u"recap"_s,     u"caf\u00e9"_s,
    };
    QRandomGenerator random(seed);
    QTextDocument document;
    QTextCursor cursor(&document);
    QString rtf;
    while (rtf.size() < textSize) {
        for (int run = 0; run < 40; ++run) {
            QTextCharFormat format;
            format.setFontFamilies({u"Arial"_s});
            format.setFontPointSize(10 + random.bounded(3));
            if (random.bounded(3) == 0)
                format.setFontWeight(QFont::Bold);
            if (random.bounded(4) == 0)
                format.setFontItalic(true);
            if (random.bounded(4) == 0)
                format.setForeground(QColor::fromHsv(random.bounded(6) * 60, 255, 200));
            if (random.bounded(6) == 0)
                format.setBackground(Qt::yellow);
            for (int i = 1 + random.bounded(8); i > 0; --i)
                cursor.insertText(words[random.bounded(int(std::size(words)))] + u' ', format);
            if (random.bounded(8) == 0)
                cursor.insertBlock();
        }
        rtf = richtext::writeDocument(document);
    }
    return rtf;
}

class ReadRichText : public Work {
public:
    explicit ReadRichText(const QString& rtf) : m_rtf(rtf) {}

    void run() override { richtext::readDocument(m_rtf, m_document); }
    qint64 finish() override { return m_document.characterCount(); }

private:
    QString m_rtf;
    QTextDocument m_document;
};

class ReadHtml : public Work {
public:
    explicit ReadHtml(const QString& rtf) {
        QTextDocument document;
        richtext::readDocument(rtf, document);
        m_html = document.toHtml();
    }

    void run() override { m_document.setHtml(m_html); }
    qint64 finish() override { return m_document.characterCount(); }

private:
    QString m_html;
    QTextDocument m_document;
};

class PlainText : public Work {
public:
    explicit PlainText(const QString& rtf) : m_rtf(rtf) {}

    void run() override { m_size = richtext::plainText(m_rtf).size(); }
    qint64 finish() override { return m_size > 0; }

private:
    QString m_rtf;
    qint64 m_size = 0;
};

/// Looks for every backslash among the same characters, as many bytes as the text is held in.
class FindBackslashes : public Work {
public:
    explicit FindBackslashes(const QString& rtf) : m_rtf(rtf) {}

    void run() override {
        m_count = 0;
        const auto* at = reinterpret_cast<const char*>(m_rtf.utf16());
        const char* const end = at + m_rtf.size() * qsizetype(sizeof(char16_t));
        while ((at = static_cast<const char*>(std::memchr(at, '\\', size_t(end - at))))) {
            ++m_count;
            ++at;
        }
    }
    qint64 finish() override { return m_count > 0; }

private:
    QString m_rtf;
    qint64 m_count = 0;
};

} // namespace

std::vector<Figure> richTextFigures(const QString&) {
    const QString rtf = mixedText();
    std::vector<Figure> figures;
    figures.push_back({u"rich text to document"_s, 1.5, 50, std::make_unique<ReadRichText>(rtf),
                       std::make_unique<ReadHtml>(rtf)});
    figures.push_back({u"plain text of rich text"_s, 20, 200, std::make_unique<PlainText>(rtf),
                       std::make_unique<FindBackslashes>(rtf)});
    return figures;
}
