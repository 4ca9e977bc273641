#include "store/engine/names.h"

#include "store/engine/error.h"
#include "store/engine/jet_sql_tokens.h"

#include <QStringDecoder>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

constexpr char16_t EndOfAscii = 0x80;
constexpr char16_t EndOfLatin = 0x180;
constexpr qsizetype MaximumNameLength = 64;

char16_t foldedAscii(char16_t character) {
    return character >= u'A' && character <= u'Z' ? char16_t(character + (u'a' - u'A')) : character;
}

/// A folded text without its accents.
QString bare(const QString& foldedText) {
    const QString decomposed = foldedText.normalized(QString::NormalizationForm_D);
    QString letters;
    for (qsizetype i = 0; i < decomposed.size(); ++i) {
        const QChar first = decomposed[i];
        const bool isPair = first.isHighSurrogate() && i + 1 < decomposed.size() &&
                            decomposed[i + 1].isLowSurrogate();
        const char32_t character =
            isPair ? QChar::surrogateToUcs4(first, decomposed[++i]) : first.unicode();
        if (!QChar::isMark(character))
            letters += QStringView(QChar::fromUcs4(character));
    }
    return letters;
}

/// Compares two texts in full: their letters without accents first, then the texts themselves.
int compareAny(QStringView a, QStringView b) {
    const QString left = folded(a);
    const QString right = folded(b);
    const int order = bare(left).compare(bare(right));
    return order != 0 ? order : left.compare(right);
}

/// A letter of those that Western and Central European names are made of, worked out once, so that
/// comparing such names needs no memory.
struct LatinLetter {
    char16_t folded = 0;
    char16_t bare = 0; ///< 0 for the few letters that fold to two
};

const std::array<LatinLetter, EndOfLatin>& latinLetters() {
    static const auto letters = [] {
        std::array<LatinLetter, EndOfLatin> made;
        for (char16_t each = 0; each < EndOfLatin; ++each) {
            const QString foldedLetter = folded(QStringView(&each, 1));
            const QString bareLetter = bare(foldedLetter);
            if (foldedLetter.size() == 1 && bareLetter.size() == 1)
                made[each] = {foldedLetter[0].unicode(), bareLetter[0].unicode()};
        }
        return made;
    }();
    return letters;
}

/// As compareAny, letter by letter; nothing where it meets one that is not in the table.
std::optional<int> compareLatin(QStringView a, QStringView b) {
    const auto& letters = latinLetters();
    const auto letterAt = [&letters](QStringView text, qsizetype place) {
        const char16_t unit = text[place].unicode();
        return unit < EndOfLatin ? letters[unit] : LatinLetter();
    };
    const qsizetype common = std::min(a.size(), b.size());
    int accents = 0;
    for (qsizetype place = 0; place < common; ++place) {
        const LatinLetter left = letterAt(a, place);
        const LatinLetter right = letterAt(b, place);
        if (!left.bare || !right.bare)
            return std::nullopt;
        if (left.bare != right.bare)
            return left.bare - right.bare;
        if (accents == 0)
            accents = left.folded - right.folded;
    }
    if (a.size() == b.size())
        return accents;
    if (!letterAt(a.size() > b.size() ? a : b, common).bare) // may be an accent of the last letter
        return std::nullopt;
    return a.size() < b.size() ? -1 : 1;
}

/// The characters of a text or pattern of LIKE, one by one, without regard to case.
class Characters {
public:
    explicit Characters(QStringView text) : m_text(text) {}

    bool atEnd(qsizetype place) const { return place >= m_text.size(); }
    char16_t unit(qsizetype place) const { return m_text[place].unicode(); }

    /// The character at a place, which moves behind it.
    char32_t next(qsizetype& place) const {
        const QChar first = m_text[place++];
        if (first.unicode() < EndOfAscii)
            return foldedAscii(first.unicode());
        if (first.isHighSurrogate() && !atEnd(place) && m_text[place].isLowSurrogate())
            return QChar::toCaseFolded(QChar::surrogateToUcs4(first, m_text[place++]));
        return QChar::toCaseFolded(char32_t(first.unicode()));
    }

    /// The place of the bracket that closes a list begun at `open`, -1 where none does.
    qsizetype closing(qsizetype open) const { return m_text.indexOf(u']', open); }

private:
    QStringView m_text;
};

int compareCharacters(char32_t a, char32_t b) {
    if (a < EndOfAscii && b < EndOfAscii)
        return int(a) - int(b);
    return compareText(QStringView(QChar::fromUcs4(a)), QStringView(QChar::fromUcs4(b)));
}

class LikeMatcher {
public:
    LikeMatcher(QStringView text, QStringView pattern) : m_text(text), m_pattern(pattern) {
        for (qsizetype place = 0; !m_pattern.atEnd(place); ++place) {
            if (m_pattern.unit(place) != u'[')
                continue;
            place = m_pattern.closing(place);
            if (place < 0)
                throw EngineError(SyntaxError, u"Invalid pattern string."_s);
        }
    }

    /// Each `*` takes as little as it can; when what follows fails, the last one takes one more.
    /// Going back further could not help, so the time is bounded by text times pattern.
    bool matches() const {
        qsizetype text = 0;
        qsizetype pattern = 0;
        qsizetype retryText = -1;
        qsizetype retryPattern = -1;
        while (true) {
            pattern = skipEmptyLists(pattern);
            if (!m_pattern.atEnd(pattern) && m_pattern.unit(pattern) == u'*') {
                retryPattern = ++pattern;
                retryText = text;
            } else if (m_text.atEnd(text) && m_pattern.atEnd(pattern)) {
                return true;
            } else if (m_text.atEnd(text)) {
                return false;
            } else if (m_pattern.atEnd(pattern) || !matchesOne(text, pattern)) {
                if (retryPattern < 0)
                    return false;
                m_text.next(retryText);
                text = retryText;
                pattern = retryPattern;
            }
        }
    }

private:
    qsizetype skipEmptyLists(qsizetype place) const {
        while (!m_pattern.atEnd(place) && m_pattern.unit(place) == u'[' &&
               m_pattern.closing(place) == place + 1)
            place += 2;
        return place;
    }

    /// Matches one character against the pattern's next element; both places move behind.
    bool matchesOne(qsizetype& text, qsizetype& pattern) const {
        const char32_t character = m_text.next(text);
        switch (m_pattern.unit(pattern)) {
        case u'?':
            ++pattern;
            return true;
        case u'#':
            ++pattern;
            return character >= U'0' && character <= U'9';
        case u'[':
            return matchesList(character, pattern);
        default:
            return m_pattern.next(pattern) == character;
        }
    }

    bool matchesList(char32_t character, qsizetype& pattern) const {
        const qsizetype end = m_pattern.closing(pattern);
        qsizetype place = pattern + 1;
        pattern = end + 1;
        const bool negated = m_pattern.unit(place) == u'!' && place + 1 < end;
        if (negated)
            ++place;
        bool found = false;
        while (place < end && !found) {
            const char32_t low = m_pattern.next(place);
            // A hyphen first or last in the list is itself.
            const bool isRange = place + 1 < end && m_pattern.unit(place) == u'-';
            if (isRange) {
                const char32_t high = m_pattern.next(++place);
                found = compareCharacters(low, character) <= 0 &&
                        compareCharacters(character, high) <= 0;
            } else {
                found = low == character;
            }
        }
        return found != negated;
    }

    Characters m_text;
    Characters m_pattern;
};

} // namespace

QString folded(QStringView text) {
    return text.toString().toCaseFolded();
}

bool sameName(QStringView a, QStringView b) {
    // Most names that are compared while one is looked up differ at either end.
    const auto differ = [](QChar left, QChar right) {
        return left.unicode() < EndOfAscii && right.unicode() < EndOfAscii &&
               foldedAscii(left.unicode()) != foldedAscii(right.unicode());
    };
    const bool areTexts = !a.isEmpty() && !b.isEmpty();
    if (areTexts && (differ(a.front(), b.front()) || differ(a.back(), b.back())))
        return false;
    return compareText(a, b) == 0;
}

int compareText(QStringView a, QStringView b) {
    const auto order = compareLatin(a, b);
    return order ? *order : compareAny(a, b);
}

int compareUtf8(QByteArrayView a, QByteArrayView b) {
    const qsizetype common = std::min(a.size(), b.size());
    qsizetype place = 0;
    for (; place < common; ++place) {
        const auto left = static_cast<uchar>(a[place]);
        const auto right = static_cast<uchar>(b[place]);
        if ((left | right) >= EndOfAscii)
            break;
        if (left != right && foldedAscii(left) != foldedAscii(right))
            return foldedAscii(left) - foldedAscii(right);
    }
    if (place == a.size() && place == b.size())
        return 0;
    const auto decoded = [place](QByteArrayView text) {
        QStringDecoder decoder(QStringDecoder::Utf8);
        QVarLengthArray<QChar, 256> units(decoder.requiredSpace(text.size() - place));
        QChar* end = decoder.appendToBuffer(units.data(), text.sliced(place));
        units.resize(end - units.data());
        return units;
    };
    return compareText(decoded(a), decoded(b));
}

QString writeName(QStringView name) {
    if (sql::isBareName(name))
        return name.toString();
    return u'[' + name.toString().replace(u']', QLatin1String("]]")) + u']';
}

QString writeText(QStringView text) {
    return u'\'' + text.toString().replace(u'\'', QLatin1String("''")) + u'\'';
}

void checkName(QStringView name) {
    const bool fits = !name.isEmpty() && name.size() <= MaximumNameLength && name[0] != u' ' &&
                      name.isValidUtf16() &&
                      std::none_of(name.begin(), name.end(), [](QChar character) {
                          return character.category() == QChar::Other_Control ||
                                 QStringView(u".!`").contains(character);
                      });
    if (!fits)
        throw EngineError(InvalidName, u"'%1' is not a valid name. Make sure that it does not "
                                       "include invalid characters or punctuation and that it "
                                       "is not too long."_s.arg(name));
}

bool matchesLike(QStringView text, QStringView pattern) {
    return LikeMatcher(text, pattern).matches();
}

} // namespace dao
