#pragma once

#include "store/engine/structure.h"
#include "store/engine/value.h"

namespace dao {

/// A value as the field keeps it: converted to the field's type. Raises 3163 for a text beyond the
/// field's size, 3315 for an empty text where none is allowed, 3421 for what the type can't hold.
/// Null passes: whether it may stay is known only when the record is written.
Value fittedValue(const Field& field, const Value& value);

} // namespace dao
