#pragma once

#include "core/prompts.h"

#include <QStringView>

#include <functional>

namespace dao {
class EngineError;
}

/// How a failure of the engine is told. Where an operation has a box of its own it stands beside
/// that operation.
struct FailureBox {
    QStringView title;
    QStringView text = u"Error : %1\nError number %2"; ///< %1: what the engine says, %2: its number
    int flags = OkButton | CriticalIcon;
};

/// Shows the box.
void tellFailure(Prompts& prompts, const FailureBox& box, const dao::EngineError& error);
/// Does work that may fail in the file; a failure is told in that box. Answers whether it was done.
bool tryTelling(Prompts& prompts, const FailureBox& box, const std::function<void()>& work);
