#pragma once

class MainWindow;
class Session;
class TourPictures;

/// Shows the editor of the person's own menu, filled.
void visitMenuEditor(Session& session, MainWindow& frame, TourPictures& pictures);
