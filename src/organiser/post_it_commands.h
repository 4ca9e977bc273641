#pragma once

#include <QtGlobal>

class Session;

/// What the menu of the post-it notes does. A failure of the file is told.

void CreatePostIt(Session& session);
/// Each row that has no window yet gets one.
void ShowAllPostIts(Session& session);
/// Closes their windows, which saves them.
void HideAllPostIts(Session& session);
/// Asks first. The windows go with their rows.
void DeleteAllPostIts(Session& session);
/// Makes a note of each of the mail client's, all or none, and shows them.
void ImportPostIts(Session& session);
/// Adds each note to those of the mail client, as plain text.
void ExportPostIts(Session& session);
/// Asks first. Answers whether the note's row is gone.
bool DeletePostIt(Session& session, qint64 id);
