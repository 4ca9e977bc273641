#pragma once

#include "office/word_document.h"

/// A seating plan's picture on a page of its own, ready for printing. Answers whether the document
/// was made; a refusal or a failure was told then.
bool CreatePlanDocument(const Seams& seams, const DocumentPlace& place, const QString& classCode,
                        const QString& picture);

/// Offers that document for a picture that was just saved.
void OfferPlanDocument(const Seams& seams, const DocumentPlace& place, const QString& classCode,
                       const QString& picture);
