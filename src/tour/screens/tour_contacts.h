#pragma once

class MainWindow;
class Session;
class TourPictures;

/// The address book with a few contacts.
void visitContacts(Session& session, MainWindow& frame, TourPictures& pictures);
