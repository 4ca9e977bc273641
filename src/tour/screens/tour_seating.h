#pragma once

class MainWindow;
class Session;
class TourPictures;

/// A seating plan with a desk selected on the grid, once the first class has pupils.
void visitSeating(Session& session, MainWindow& frame, TourPictures& pictures);
