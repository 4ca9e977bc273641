#pragma once

#include <QString>

class MainWindow;
class Session;
class TourPictures;

/// Gives the sample year's first class pupils with photos, marks, grades and notes. Raises what the
/// engine raises.
void fillFirstClass(Session& session);

/// The views of the class window, the New Class Wizard and the selector.
void visitClasses(Session& session, MainWindow& frame, TourPictures& pictures);
