#pragma once

#include "store/engine/engine.h"

#include <QList>
#include <QString>

/// The rows of `Post-It`, a row a note. All raise what the engine raises.

/// The height of a note that is not shrunk to its title, in twips.
inline constexpr int FullNoteHeight = 3120;

struct PostIt {
    qint64 id = 0;  ///< `IDX`, given by the table
    QString memo;   ///< rich text, or plain text of a note that was never saved
    int top = 1000; ///< of the screen, in twips, as `left`
    int left = 1000;
    bool isShrunk = false; ///< to its title

    bool operator==(const PostIt&) const = default;
};

/// The text of a note that nobody has written in yet.
QString newNoteText();
/// Whether a plain text, whatever its line breaks, is that text.
bool isNewNoteText(const QString& plain);

/// Makes the table where it is missing.
void CheckPostItTable(const dao::Database& year);

qsizetype countPostIts(const dao::Database& year);
QList<PostIt> readPostIts(const dao::Database& year);
/// Answers the note with the number that the table gave it.
PostIt addPostIt(const dao::Database& year, PostIt note);
/// Answers false where the note's row has gone; then nothing is done.
bool savePostIt(const dao::Database& year, const PostIt& note);
void deletePostIt(const dao::Database& year, qint64 id);
void deleteAllPostIts(const dao::Database& year);
