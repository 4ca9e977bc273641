#include "richtext/rtf_template.h"

#include "richtext/rtf_scanner.h"
#include "richtext/rtf_text.h"

#include <QList>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

/// A stretch of the source.
struct Stretch {
    qsizetype from;
    qsizetype to;
};

/// What begins or ends a bookmark: a group `{\*\bkmkstart NAME}`.
struct Mark {
    Stretch group;
    QString name;
    bool isStart;
};

/// The text of a paragraph: `{\uc1 ...}`, whatever the place says about \u.
QString filling(const QString& text) {
    QString rtf = u"{\\uc1 "_s;
    const QStringList lines = cleanedLines(text).split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            rtf += u"\\par ";
        appendText(rtf, lines[i]);
    }
    return rtf + u'}';
}

/// Walks through a source; finds its bookmarks and what is text for people between them.
class BookmarkWalk {
public:
    explicit BookmarkWalk(QStringView source) : m_scanner(source) { walk(); }

    const QList<Mark>& marks() const { return m_marks; }
    const QList<Stretch>& texts() const { return m_texts; }
    /// Whether neither text nor the end of a paragraph or cell stands between two places.
    bool areSideBySide(qsizetype from, qsizetype to) const {
        const auto stands = [from, to](qsizetype place) { return place >= from && place < to; };
        return std::none_of(m_texts.begin(), m_texts.end(),
                            [&](const Stretch& text) { return stands(text.from); }) &&
               std::none_of(m_ends.begin(), m_ends.end(), stands);
    }

private:
    void walk() {
        qsizetype group = 0; // where the group begins that was opened last
        bool isIgnorable = false;
        for (Token token = m_scanner.next(); token != Token::End; token = m_scanner.next()) {
            switch (token) {
            case Token::Open:
                group = m_scanner.start();
                isIgnorable = false;
                break;
            case Token::Symbol:
                if (m_scanner.symbol() == u'*' && m_scanner.start() == group + 1)
                    isIgnorable = true;
                else
                    addText();
                break;
            case Token::Word:
                word(group, isIgnorable);
                break;
            case Token::Close:
                isIgnorable = false;
                break;
            default:
                addText();
            }
        }
    }

    QStringView token() const {
        return m_scanner.textFrom(m_scanner.start(), m_scanner.position());
    }

    void word(qsizetype group, bool isIgnorable) {
        const QStringView name = token().trimmed();
        if (isIgnorable && (name == u"\\bkmkstart" || name == u"\\bkmkend")) {
            const qsizetype from = m_scanner.position();
            if (!m_scanner.skipGroup())
                return;
            const qsizetype to = m_scanner.position();
            m_marks += {.group = {group, to + 1},
                        .name = m_scanner.textFrom(from, to).trimmed().toString(),
                        .isStart = name == u"\\bkmkstart"};
            return;
        }
        static const QList<QStringView> ends{u"\\par", u"\\cell", u"\\nestcell", u"\\row",
                                             u"\\sect"};
        static const QList<QStringView> withoutText{u"\\fonttbl", u"\\colortbl", u"\\stylesheet",
                                                    u"\\info",    u"\\pict",     u"\\fldinst"};
        if (isIgnorable || withoutText.contains(name))
            m_scanner.skipGroup();
        else if (name == u"\\line" || name == u"\\tab")
            addText();
        else if (ends.contains(name))
            m_ends += m_scanner.start();
    }

    void addText() { m_texts += {m_scanner.start(), m_scanner.position()}; }

    Scanner m_scanner;
    QList<Mark> m_marks;
    QList<Stretch> m_texts;
    QList<qsizetype> m_ends; ///< of paragraphs and cells
};

/// Where the bookmark ends that begins with a mark; the mark's own end where nothing ends it.
qsizetype endOf(const QList<Mark>& marks, qsizetype start) {
    for (qsizetype i = start + 1; i < marks.size(); ++i) {
        if (!marks[i].isStart && marks[i].name == marks[start].name)
            return marks[i].group.to;
    }
    return marks[start].group.to;
}

struct Change {
    Stretch stretch;
    QString text;
};

QString changed(const QString& source, QList<Change> changes) {
    std::stable_sort(changes.begin(), changes.end(), [](const Change& a, const Change& b) {
        return a.stretch.from < b.stretch.from;
    });
    QString result;
    qsizetype at = 0;
    for (const Change& change : std::as_const(changes)) {
        if (change.stretch.from < at)
            continue; // within what has gone already
        result += QStringView(source).sliced(at, change.stretch.from - at);
        result += change.text;
        at = change.stretch.to;
    }
    return result + QStringView(source).sliced(at).toString();
}

} // namespace

/// Word processors write a bookmark twice at one place now and then: it is filled once there. The
/// text of a bookmark goes; what formats, and what makes cells and paragraphs, stays, so that a
/// bookmark across them leaves the form as it is.
bool RtfTemplate::fillBookmark(const QString& name, const QString& text) {
    const BookmarkWalk walk(m_source);
    const QList<Mark>& marks = walk.marks();
    QList<Change> changes;
    std::optional<qsizetype> filledUntil;
    for (qsizetype i = 0; i < marks.size(); ++i) {
        if (!marks[i].isStart || marks[i].name.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        const bool isAgain = filledUntil && walk.areSideBySide(*filledUntil, marks[i].group.from);
        changes += {marks[i].group, isAgain ? QString() : filling(text)};
        const Stretch within{marks[i].group.to, endOf(marks, i)};
        filledUntil = within.to;
        const auto take = [&](const Stretch& stretch) {
            if (stretch.from >= within.from && stretch.to <= within.to)
                changes += {stretch, {}};
        };
        for (const Mark& mark : marks)
            take(mark.group);
        for (const Stretch& each : walk.texts())
            take(each);
    }
    m_source = changed(m_source, changes);
    return !changes.isEmpty();
}

void RtfTemplate::setTitle(const QString& title) {
    QString group = u"{\\title "_s;
    appendText(group, title);
    group += u'}';
    const auto place = [this](QStringView word) { return m_source.indexOf(word); };
    const auto groupEnd = [this](qsizetype from) {
        Scanner scanner{QStringView(m_source).sliced(from + 1)};
        return scanner.skipGroup() ? from + 1 + scanner.position() + 1 : from;
    };
    const qsizetype info = place(u"{\\info");
    if (info < 0) {
        const qsizetype fonts = place(u"{\\fonttbl");
        const qsizetype at = fonts < 0 ? m_source.size() : groupEnd(fonts);
        m_source.insert(at, u"{\\info"_s + group + u'}');
        return;
    }
    const qsizetype old = m_source.indexOf(u"{\\title"_s, info);
    if (old > info && old < groupEnd(info))
        m_source.remove(old, groupEnd(old) - old);
    m_source.insert(info + 6, group);
}

} // namespace richtext
