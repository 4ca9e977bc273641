#include "store/engine/error.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace dao {

EngineError::EngineError(int number, QString description)
    : m_number(number)
    , m_description(std::move(description))
    , m_what(u"%1: %2"_s.arg(number).arg(m_description).toUtf8()) {}

} // namespace dao
