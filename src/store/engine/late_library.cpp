#include "store/engine/late_library.h"

#include <dlfcn.h>

namespace dao {
namespace {

#ifdef ORVA_SANITIZE // whose own functions stand before the libraries'
constexpr int atFirstCall = RTLD_LAZY;
#else
constexpr int atFirstCall = RTLD_LAZY | RTLD_DEEPBIND;
#endif

} // namespace

// The system's own call and not QLibrary, which tries some dozens of other names before this one.
LateLibrary::LateLibrary(const char* name, Binding binding)
    : m_library(dlopen(name, binding == Binding::WhileLoading ? RTLD_NOW : atFirstCall))
    , m_isWhole(m_library != nullptr) {}

LateLibrary::Address LateLibrary::function(const char* name) {
    const Address address{m_isWhole ? dlsym(m_library, name) : nullptr};
    m_isWhole = address.function != nullptr;
    return address;
}

} // namespace dao
