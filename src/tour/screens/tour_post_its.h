#pragma once

class MainWindow;
class Session;
class TourPictures;

/// A note as a teacher has it on the screen.
void visitPostIts(Session& session, MainWindow& frame, TourPictures& pictures);
