// Procedures that get the messages of a window before its own procedure does.
#pragma once

#include <cstddef>
#include <windows.h>

namespace sample_host {

struct SubclassChain;

// What a subclass procedure passes a message on to: the procedure that was added before it, at last the
// window's own. Valid until the subclass procedure returns. Answers 0 when the window is gone.
class NextProcedure {
public:
    NextProcedure(const SubclassChain& chain, std::size_t left) noexcept : m_chain(chain), m_left(left) {}
    LRESULT operator()(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const;

private:
    const SubclassChain& m_chain;
    std::size_t m_left; // subclass procedures that have not had the message yet
};

using SubclassProcedure = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      const NextProcedure& next);

// The procedure added last gets each message first, to the window's end. One that the window has already is
// not added again. To be called on the window's thread, for windows of one thread.
void AddSubclass(HWND window, SubclassProcedure procedure);

} // namespace sample_host
