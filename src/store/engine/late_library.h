#pragma once

#include <QLibrary>

namespace dao {

/// A library of C functions that the first window does without. It is loaded when its first
/// function is needed instead of with the program, which starts the sooner. Each library is a
/// struct that derives from this one and has a pointer a function, typed by the library's own
/// header:
///
///     decltype(&freexl_open) open = function("freexl_open");
///
/// Load it before readConfined, not in its child process: after a fork the dynamic loader may stay
/// locked by a thread that is not there any more.
class LateLibrary {
public:
    /// Whether the library is installed and has all functions asked for. Else call none of them.
    bool isWhole() const { return m_isWhole; }

protected:
    /// `name`: what programs that link the library find it by, as "libfreexl.so.1".
    explicit LateLibrary(const char* name);

    /// Becomes the pointer that it initialises, whatever the function's type.
    struct Address {
        QFunctionPointer function;
        template<typename Function>
        operator Function*() const {
            return reinterpret_cast<Function*>(function);
        }
    };
    Address function(const char* name);

private:
    QLibrary m_library;
    bool m_isWhole;
};

} // namespace dao
