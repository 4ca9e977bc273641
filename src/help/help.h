#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

/// What the help is opened for. Known by number.
enum HelpCommand {
    HelpContext = 1,  ///< the page about a control
    HelpIndex = 3,    ///< the contents
    HelpSearch = 261, ///< the search over all pages
};

struct HelpPage {
    QString name; ///< as links write it, without ".md": "backup"
    int number = 0;
    QString title;
    QStringList keywords;
    /// What the page is about: a window ("StartupWiz"), a control in one ("StartupWiz.Text2") or
    /// anything in a part of one ("StartupWiz.f1(1)"). Each stands in one page only.
    QStringList contexts;
    QString markdown;
    QString text; ///< the same without title and marks, for the search
};

struct HelpChapter {
    QString title;
    QList<int> pages; ///< places in HelpBook::pages
};

struct HelpKeyword {
    QString word;
    QList<int> pages; ///< places in HelpBook::pages
};

/// A stretch of a text.
struct HelpMark {
    qsizetype start;
    qsizetype length;

    bool operator==(const HelpMark&) const = default;
};

/// Where words of the text begin with one of `words`, in order.
QList<HelpMark> helpMarks(const QString& text, const QString& words);

/// A page that a search found.
struct HelpHit {
    int page; ///< place in HelpBook::pages
    int score;
    QString excerpt;       ///< the part of the text that has most of the words, in one line
    QList<HelpMark> marks; ///< where the words stand in the excerpt, in order
};

/// The content of a help file: pages in the order of the contents, and what leads to them.
struct HelpBook {
    QList<HelpPage> pages;
    QList<HelpChapter> chapters;
    QHash<QString, QByteArray> pictures; ///< PNG files by name: "StartupWiz.png"

    /// The place of a page; -1 where there is none of that name or number.
    int pageNamed(QStringView name) const;
    int pageNumbered(int number) const;
    /// All keywords in alphabetical order, without regard to case.
    QList<HelpKeyword> index() const;
    /// The pages that have every one of the words, or words that begin so, best first: one in the
    /// title counts most, then one among the keywords, then how often the text has it. Without
    /// words nothing is found.
    QList<HelpHit> search(const QString& words) const;
    /// The page about a control, given by the object names of itself and of all that it stands in,
    /// the control first: what is said of the control, else of the nearest part of its window that
    /// anything is said of. An element of an array, "Text1(3)", counts also as "Text1". -1 where
    /// nothing is said.
    int topicOf(const QStringList& controlPath) const;
};
