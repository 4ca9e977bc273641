#include "core/engine_failure.h"

#include "store/engine/error.h"

using namespace Qt::StringLiterals;

void tellFailure(Prompts& prompts, const FailureBox& box, const dao::EngineError& error) {
    QString text = box.text.toString();
    text.replace(u"%2"_s, QString::number(error.number()));
    text.replace(u"%1"_s, error.description()); // last: it names fields, and so may hold a "%2"
    prompts.PlainBox(text, box.flags, box.title.toString());
}

bool tryTelling(Prompts& prompts, const FailureBox& box, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const dao::EngineError& error) {
        tellFailure(prompts, box, error);
        return false;
    }
}
