#include "help/help.h"

#include <algorithm>
#include <map>

namespace {

constexpr int titleScore = 20;
constexpr int keywordScore = 10;
constexpr int mostInText = 8; ///< a long page is not better for its length
constexpr qsizetype excerptLength = 150;
constexpr qsizetype excerptLead = 40; ///< characters before the first word

template<typename Test>
int placeOf(const QList<HelpPage>& pages, Test test) {
    const auto found = std::find_if(pages.begin(), pages.end(), test);
    return found == pages.end() ? -1 : static_cast<int>(found - pages.begin());
}

bool beginsWord(const QString& text, qsizetype place) {
    return place == 0 || !text.at(place - 1).isLetterOrNumber();
}

/// Where words begin with `word`.
QList<qsizetype> places(const QString& text, const QString& word) {
    QList<qsizetype> result;
    for (qsizetype at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(word, at + word.size(), Qt::CaseInsensitive)) {
        if (beginsWord(text, at))
            result += at;
    }
    return result;
}

QStringList wordsOf(const QString& text) {
    QStringList words;
    QString word;
    for (const QChar character : text + u' ') {
        if (character.isLetterOrNumber()) {
            word += character;
        } else if (!word.isEmpty()) {
            words += word;
            word.clear();
        }
    }
    words.removeDuplicates();
    return words;
}

/// What a word is worth to a page; 0 where the page does not have it.
int scoreOf(const HelpPage& page, const QString& word) {
    int score = 0;
    if (!places(page.title, word).isEmpty())
        score += titleScore;
    if (!places(page.keywords.join(u' '), word).isEmpty())
        score += keywordScore;
    return score +
           static_cast<int>(std::min<qsizetype>(places(page.text, word).size(), mostInText));
}

int scoreOf(const HelpPage& page, const QStringList& words) {
    int sum = 0;
    for (const QString& word : words) {
        const int score = scoreOf(page, word);
        if (score == 0)
            return 0;
        sum += score;
    }
    return sum;
}

QList<HelpMark> marksOf(const QString& text, const QStringList& words) {
    QList<HelpMark> marks;
    for (const QString& word : words) {
        for (const qsizetype place : places(text, word))
            marks.append({place, word.size()});
    }
    std::sort(marks.begin(), marks.end(),
              [](const HelpMark& a, const HelpMark& b) { return a.start < b.start; });
    return marks;
}

/// The first of the marks behind which most others stand in reach.
qsizetype densest(const QList<HelpMark>& marks) {
    qsizetype best = 0;
    qsizetype most = 0;
    for (qsizetype first = 0; first < marks.size(); ++first) {
        const auto inReach =
            std::count_if(marks.begin() + first, marks.end(), [&](const HelpMark& mark) {
                return mark.start - marks[first].start < excerptLength - excerptLead;
            });
        if (inReach > most) {
            most = inReach;
            best = marks[first].start;
        }
    }
    return best;
}

QString excerptOf(const QString& text, const QStringList& words) {
    qsizetype start = std::max<qsizetype>(densest(marksOf(text, words)) - excerptLead, 0);
    while (!beginsWord(text, start))
        --start;
    qsizetype end = std::min(start + excerptLength, text.size());
    while (end < text.size() && !beginsWord(text, end))
        ++end;
    const QString ellipsis(QChar(0x2026));
    return (start > 0 ? ellipsis : QString()) + text.mid(start, end - start).simplified() +
           (end < text.size() ? ellipsis : QString());
}

/// "Text1(3)" is "Text1"; other names stay.
QString arrayName(const QString& name) {
    return name.endsWith(u')') ? name.left(name.lastIndexOf(u'(')) : name;
}

} // namespace

QList<HelpMark> helpMarks(const QString& text, const QString& words) {
    return marksOf(text, wordsOf(words));
}

int HelpBook::pageNamed(QStringView name) const {
    return placeOf(pages, [name](const HelpPage& page) { return page.name == name; });
}

int HelpBook::pageNumbered(int number) const {
    return placeOf(pages, [number](const HelpPage& page) { return page.number == number; });
}

QList<HelpKeyword> HelpBook::index() const {
    std::map<QString, HelpKeyword> entries; // by the word in lower case
    for (int page = 0; page < pages.size(); ++page) {
        for (const QString& word : pages[page].keywords) {
            HelpKeyword& entry = entries[word.toLower()];
            if (entry.word.isEmpty())
                entry.word = word;
            entry.pages += page;
        }
    }
    QList<HelpKeyword> result;
    for (const auto& [key, entry] : entries)
        result += entry;
    return result;
}

QList<HelpHit> HelpBook::search(const QString& words) const {
    const QStringList wanted = wordsOf(words);
    QList<HelpHit> hits;
    for (int page = 0; page < pages.size(); ++page) {
        const int score = scoreOf(pages[page], wanted);
        if (score == 0)
            continue;
        const QString excerpt = excerptOf(pages[page].text, wanted);
        hits.append({page, score, excerpt, marksOf(excerpt, wanted)});
    }
    std::stable_sort(hits.begin(), hits.end(),
                     [](const HelpHit& a, const HelpHit& b) { return a.score > b.score; });
    return hits;
}

int HelpBook::topicOf(const QStringList& controlPath) const {
    const auto pageAbout = [this](const QString& context) {
        return placeOf(pages,
                       [&](const HelpPage& page) { return page.contexts.contains(context); });
    };
    for (qsizetype part = 0; part < controlPath.size(); ++part) {
        const QString& name = controlPath[part];
        for (const QString& wanted : {name, arrayName(name)}) {
            for (qsizetype around = part + 1; around < controlPath.size(); ++around) {
                if (const int page = pageAbout(controlPath[around] + u'.' + wanted); page >= 0)
                    return page;
            }
            if (const int page = pageAbout(wanted); page >= 0)
                return page;
        }
    }
    return -1;
}
