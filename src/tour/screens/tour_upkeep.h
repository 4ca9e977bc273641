#pragma once

class Session;
class TourPictures;

/// "Archive a class" over the open year: its two pages. Archives nothing.
void visitArchive(Session& session, TourPictures& pictures);

/// The Change Week Allocations Wizard over the open year: its first page, and the second with the
/// week after the current one picked. Changes nothing.
void visitWeekChange(Session& session, TourPictures& pictures);
