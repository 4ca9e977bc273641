#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

struct Hunhandle; // hunspell.h

namespace richtext {

/// A stretch of a text.
struct TextRange {
    qsizetype start;
    qsizetype length;

    bool operator==(const TextRange&) const = default;
};

/// The words of a text that are looked up: letters with apostrophes inside. Left out are single
/// letters, words in capitals, words with digits or letters of other scripts than the Latin, and
/// web and mail addresses.
QList<TextRange> wordsToCheck(QStringView text);

/// British English spelling, by the dictionary that is installed on the computer. Without one
/// every word is right. Hunspell and its dictionary are loaded when the first word is asked for.
class Speller {
public:
    /// `dictionary` is the path of its two files without their endings: ".aff" and ".dic".
    explicit Speller(QString dictionary = QStringLiteral("/usr/share/hunspell/en_GB"));
    ~Speller();
    Speller(const Speller&) = delete;
    Speller& operator=(const Speller&) = delete;

    /// The one that all boxes share.
    static Speller& shared();

    bool isRight(QStringView word);
    /// The stretches of a text with words that are not right.
    QList<TextRange> mistakes(QStringView text);
    /// At most `most` words that may have been meant, the likeliest first.
    QStringList suggestions(const QString& word, qsizetype most = 6);
    /// Takes the word as right from now on, until the program ends.
    void accept(const QString& word);

private:
    void load();
    bool lookUp(const QString& word);

    QString m_path;
    bool m_isLoaded = false;
    std::unique_ptr<Hunhandle, void (*)(Hunhandle*)> m_dictionary; ///< none where none is installed
    QHash<QString, bool> m_known;
};

} // namespace richtext
