#include "richtext/speller.h"

#include "store/engine/late_library.h"

#include <QFile>

#include <hunspell.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

/// A document can't make the memory of known words grow without bound.
constexpr qsizetype mostKnown = 50000;
constexpr qsizetype longestWord = 60;

bool isApostrophe(QChar c) {
    return c == u'\'' || c == QChar(0x2019);
}

bool isSpace(QChar c) {
    return c.isSpace() || c == QChar::ObjectReplacementCharacter;
}

bool isAddress(QStringView chunk) {
    return chunk.contains(u"://") || chunk.contains(u'@') || chunk.startsWith(u"www.");
}

bool isForeignLetter(QChar letter) {
    return letter.isLetter() && letter.script() != QChar::Script_Latin;
}

bool isCapitals(QStringView word) {
    return std::none_of(word.begin(), word.end(), [](QChar c) { return c.isLower(); });
}

/// The words of a chunk that stands between blanks.
void addWords(QStringView text, qsizetype from, qsizetype end, QList<TextRange>& words) {
    while (from < end) {
        qsizetype to = from;
        bool isOther = false; // a code, or another script's word
        const auto belongs = [&](qsizetype at) {
            const bool inside = at > from && at + 1 < end && isApostrophe(text[at]) &&
                                text[at + 1].isLetter() && text[at - 1].isLetter();
            return text[at].isLetterOrNumber() || text[at].isMark() || inside;
        };
        for (; to < end && belongs(to); ++to)
            isOther = isOther || text[to].isNumber() || isForeignLetter(text[to]);
        const QStringView word = text.mid(from, to - from);
        if (word.size() > 1 && word.size() <= longestWord && !isOther && !isCapitals(word))
            words.append({from, to - from});
        from = std::max(to, from + 1);
    }
}

/// The dictionary knows the straight apostrophe alone.
QString plainForm(QStringView word) {
    return word.toString().replace(QChar(0x2019), u'\'');
}

struct HunspellLibrary : dao::LateLibrary {
    HunspellLibrary() : LateLibrary(ORVA_HUNSPELL) {}

    decltype(&Hunspell_create) create = function("Hunspell_create");
    decltype(&Hunspell_destroy) destroy = function("Hunspell_destroy");
    decltype(&Hunspell_get_dic_encoding) encoding = function("Hunspell_get_dic_encoding");
    decltype(&Hunspell_spell) spell = function("Hunspell_spell");
    decltype(&Hunspell_suggest) suggest = function("Hunspell_suggest");
    decltype(&Hunspell_free_list) freeList = function("Hunspell_free_list");
    decltype(&Hunspell_add) add = function("Hunspell_add");
};

const HunspellLibrary& hunspell() {
    static const HunspellLibrary library;
    return library;
}

} // namespace

QList<TextRange> wordsToCheck(QStringView text) {
    QList<TextRange> words;
    for (qsizetype from = 0; from < text.size();) {
        qsizetype to = from;
        while (to < text.size() && !isSpace(text[to]))
            ++to;
        if (to > from && !isAddress(text.mid(from, to - from)))
            addWords(text, from, to, words);
        from = to + 1;
    }
    return words;
}

Speller::Speller(QString dictionary)
    : m_path(std::move(dictionary)), m_dictionary(nullptr, nullptr) {}

Speller::~Speller() = default;

Speller& Speller::shared() {
    static Speller speller;
    return speller;
}

void Speller::load() {
    if (std::exchange(m_isLoaded, true))
        return;
    const QByteArray aff = QFile::encodeName(m_path + u".aff"_s);
    const QByteArray dic = QFile::encodeName(m_path + u".dic"_s);
    if (!QFile::exists(m_path + u".aff"_s) || !QFile::exists(m_path + u".dic"_s) ||
        !hunspell().isWhole())
        return;
    m_dictionary = {hunspell().create(aff.constData(), dic.constData()), hunspell().destroy};
    if (qstrcmp(hunspell().encoding(m_dictionary.get()), "UTF-8") != 0)
        m_dictionary.reset(); // the British one is in UTF-8 wherever it is installed
}

bool Speller::isRight(QStringView word) {
    const QString plain = plainForm(word);
    const auto known = m_known.constFind(plain);
    if (known != m_known.constEnd())
        return known.value();
    if (m_known.size() >= mostKnown)
        m_known.clear();
    return m_known[plain] = lookUp(plain);
}

bool Speller::lookUp(const QString& word) {
    load();
    return !m_dictionary || hunspell().spell(m_dictionary.get(), word.toUtf8().constData());
}

QList<TextRange> Speller::mistakes(QStringView text) {
    QList<TextRange> wrong;
    for (const TextRange& word : wordsToCheck(text)) {
        if (!isRight(text.mid(word.start, word.length)))
            wrong.append(word);
    }
    return wrong;
}

QStringList Speller::suggestions(const QString& word, qsizetype most) {
    load();
    QStringList found;
    if (!m_dictionary)
        return found;
    char** list = nullptr;
    const int count =
        hunspell().suggest(m_dictionary.get(), &list, plainForm(word).toUtf8().constData());
    for (int i = 0; i < std::min<qsizetype>(count, most); ++i)
        found += QString::fromUtf8(list[i]);
    hunspell().freeList(m_dictionary.get(), &list, count);
    return found;
}

void Speller::accept(const QString& word) {
    load();
    if (m_dictionary)
        hunspell().add(m_dictionary.get(), plainForm(word).toUtf8().constData());
    m_known.remove(plainForm(word));
}

} // namespace richtext
