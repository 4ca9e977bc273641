#pragma once

#include <QString>

class Session;

/// The documents for the word processor, `documents/*.rtf` in the tour's folder. Where LibreOffice
/// is installed each is pictured too: its first page, `Word_<document>.png`.
void visitDocuments(Session& session, const QString& folder);
