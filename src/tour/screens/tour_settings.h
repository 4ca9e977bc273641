#pragma once

class MainWindow;
class Session;
class TourPictures;

/// Every page of the settings, with what a teacher would have there.
void visitSettings(Session& session, MainWindow& frame, TourPictures& pictures);
