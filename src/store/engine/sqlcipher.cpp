#include "store/engine/sqlcipher.h"

#include "store/engine/error.h"

using namespace Qt::StringLiterals;

namespace dao {

const Sqlcipher& sqlcipher() {
    static const Sqlcipher library;
    if (!library.isWhole())
        throw EngineError(CannotOpenFile,
                          u"The library %1, which reads and writes databases, is missing."_s.arg(
                              QLatin1StringView(ORVA_SQLCIPHER)));
    return library;
}

} // namespace dao
