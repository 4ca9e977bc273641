#pragma once

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
    /// When the library's own calls are tied: all while it loads, so that nothing is left for a
    /// child process to do, or each when it is first made. The latter, for the biggest ones, looks
    /// for a function in the library and what it stands on before all else: most are its own.
    enum class Binding { WhileLoading, AtFirstCall };

    /// `name`: what programs that link the library find it by, as "libfreexl.so.1".
    explicit LateLibrary(const char* name, Binding binding = Binding::WhileLoading);

    /// Becomes the pointer that it initialises, whatever the function's type.
    struct Address {
        void* function;
        template<typename Function>
        operator Function*() const {
            return reinterpret_cast<Function*>(function);
        }
    };
    Address function(const char* name);

private:
    void*
        m_library; ///< stays loaded to the end, for it may have left its own things to be done then
    bool m_isWhole;
};

} // namespace dao
