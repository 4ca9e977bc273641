#include "store/engine/late_library.h"

namespace dao {

LateLibrary::LateLibrary(const char* name) : m_library(QString::fromLatin1(name)) {
    m_library.setLoadHints(QLibrary::ResolveAllSymbolsHint); // nothing is left for a child to do
    m_isWhole = m_library.load();
}

LateLibrary::Address LateLibrary::function(const char* name) {
    const Address address{m_isWhole ? m_library.resolve(name) : nullptr};
    m_isWhole = address.function != nullptr;
    return address;
}

} // namespace dao
