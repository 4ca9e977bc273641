#include "controls/window_going.h"

#include <QWidget>

#include <algorithm>
#include <utility>

AskBeforeGoing::AskBeforeGoing(QWidget& window, std::function<bool()> ask)
    : BeforeGoing(&window), m_ask(std::move(ask)) {}

bool mayWindowGo(const QWidget& window) {
    const QList<BeforeGoing*> all = window.findChildren<BeforeGoing*>();
    return std::all_of(all.begin(), all.end(), [](BeforeGoing* each) { return each->mayGo(); });
}
