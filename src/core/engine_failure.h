#pragma once

#include <QString>

#include <functional>

class Prompts;

namespace dao {
class EngineError;
}

/// The box of a failure of the engine, where an operation has none of its own.
void showEngineError(Prompts& prompts, const QString& title, const dao::EngineError& error,
                     int flags);
/// Does work that may fail in the file; a failure is told in that box. Answers whether it was done.
bool tryTelling(Prompts& prompts, const QString& title, const std::function<void()>& work);
