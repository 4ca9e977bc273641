#pragma once

#include "office/word_document.h"

#include <QDate>

/// The quick plan of a day, on one page where its texts allow: the lessons and homework of each
/// period and the day's blocks. Answers whether the document was made; a failure was told then.
bool CreateQuickPlan(const Session& session, const DocumentPlace& place, QDate date);
