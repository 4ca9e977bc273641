#pragma once

#include <QByteArray>
#include <QString>

namespace dao {

/// Files that are made beside their place under another name and put there when they are whole.

/// The name under which a file is built before it takes the place of `path`: beside it, so that the
/// last step is a rename.
QString unfinishedName(const QString& path);

/// The file that a link leads to, so that it is replaced and not the link; also one that is missing
/// still. A path that is no link's and leads to no file stays as it is.
QString behindLinks(const QString& path);

/// Makes an empty file that its owner alone may read and write. Raises 3051, also where the path is
/// taken.
void makePrivateFile(const QString& path);

/// Copies the bytes that a descriptor leads to, from the first to the last, into a private file
/// that it makes. Raises 3051, 3043 and on a full disk 3182; then nothing is left of the file.
void copyContent(int source, const QString& copy);

/// Takes from a copy what its owner may not do with the source either.
void makeAsStrict(const QString& copy, const QString& source);

/// Takes a file from everybody but its owner, who keeps what he may do with it. A file system that
/// knows of no owners, or another person's file, stays as it is.
void makePrivate(const QString& path);

/// Makes the content of a file or folder durable on the disk, as far as its file system can. Raises
/// 3043, on a full disk 3182.
void flushToDisk(const QString& path);

/// Puts a finished file in the place of `target`, over one that stands there: at every moment, also
/// when the power fails, the name stands for the old file or for the new one. Side files that an
/// old database left beside `target` go first, or they would be played into the new one. What the
/// owner may do with the old file he may do with the new one, and nobody else may anything. Both
/// must be in the same folder. Raises as flushToDisk; then `target` is as it was.
void replaceFile(const QString& finished, const QString& target);

/// Makes a file of these bytes at `path`, or behind the link that stands there, whole or not at
/// all: it is made beside its place as a private file and put there as replaceFile does. Raises as
/// copyContent and replaceFile.
void putFile(const QString& path, const QByteArray& bytes);

/// Lets a file stay under a second name, which no file has yet, when another takes its place.
/// Raises 3043, on a full disk 3182.
void keepFile(const QString& path, const QString& keptAs);

/// Removes a database and the side files that the engine may have left with it, where they are.
void removeDatabaseFile(const QString& path);

} // namespace dao
