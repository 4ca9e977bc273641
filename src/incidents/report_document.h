#pragma once

#include "office/word_document.h"

#include <optional>

/// The texts of a report, plain.
struct ReportTexts {
    QString forename;
    QString surname;
    QString date; ///< as the tree shows it
    QString tutor;
    QString title;
    QString information;
    QString actionTaken;
    QString home;
    QString furtherAction;
    QString sendTo;
    QString copyTo;
};

/// The texts of a stored report; nothing where it is gone. Raises what the engine raises.
std::optional<ReportTexts> readReportTexts(const Session& session, qint64 report);

/// The report in the teacher's template. Answers whether the document was made; a refusal or a
/// failure was told then.
bool CreateWordDoc(const Session& session, const DocumentPlace& place, const ReportTexts& report);
