#pragma once

#include <QString>

#include <optional>

/// What is wrong with an answer: which one (as the answers file names it), and the title and text
/// of the box that says so.
struct AnswerFault {
    QString field;
    QString title;
    QString text;
};

/// Nothing where the answer is good.
using AnswerCheck = std::optional<AnswerFault>;
