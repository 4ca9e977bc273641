#include "store/engine/error.h"

#include <utility>

namespace dao {

EngineError::EngineError(int number, QString description)
    : m_number(number)
    , m_description(std::move(description))
    , m_what(QStringLiteral("%1: %2").arg(number).arg(m_description).toUtf8()) {}

} // namespace dao
