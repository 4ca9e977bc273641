#pragma once

class MainWindow;
class Session;
class TourPictures;

/// The history viewer and the find box, over the sheet of today.
void visitPastLessons(Session& session, MainWindow& frame, TourPictures& pictures);
