#pragma once

class MainWindow;
class Session;
class TourPictures;

/// The incident reports with a few of them: one that is open, and a new one being entered.
void visitIncidents(Session& session, MainWindow& frame, TourPictures& pictures);
