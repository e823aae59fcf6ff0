#include "subclass.h"

#include <algorithm>
#include <map>
#include <memory>
#include <vector>

namespace sample_host {

struct SubclassChain {
    bool unicode = false;
    WNDPROC own = nullptr; // null when the window is gone
    std::vector<SubclassProcedure> procedures;
};

namespace {

std::map<HWND, std::shared_ptr<SubclassChain>> chains;

LRESULT CALLBACK Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto found = chains.find(window);
    if (found == chains.end())
        return DefWindowProcA(window, message, wParam, lParam);
    // A message may destroy its window, or add a procedure: its own way stays as it began.
    const std::shared_ptr<SubclassChain> chain = found->second;
    const LRESULT result = NextProcedure(*chain, chain->procedures.size())(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        chain->own = nullptr;
        chains.erase(window);
    }
    return result;
}

// Unicode or ANSI as the window's own procedure is: otherwise the system would convert every text.
WNDPROC ReplaceProcedure(HWND window, bool unicode) {
    const auto dispatch = reinterpret_cast<LONG_PTR>(Dispatch);
    return reinterpret_cast<WNDPROC>(unicode ? SetWindowLongPtrW(window, GWLP_WNDPROC, dispatch)
                                             : SetWindowLongPtrA(window, GWLP_WNDPROC, dispatch));
}

} // namespace

LRESULT NextProcedure::operator()(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const {
    if (m_chain.own == nullptr)
        return 0;
    if (m_left > 0) {
        const NextProcedure next(m_chain, m_left - 1);
        return m_chain.procedures[m_left - 1](window, message, wParam, lParam, next);
    }
    return m_chain.unicode ? CallWindowProcW(m_chain.own, window, message, wParam, lParam)
                           : CallWindowProcA(m_chain.own, window, message, wParam, lParam);
}

void AddSubclass(HWND window, SubclassProcedure procedure) {
    std::shared_ptr<SubclassChain>& chain = chains[window];
    if (!chain) {
        chain = std::make_shared<SubclassChain>();
        chain->unicode = IsWindowUnicode(window) != FALSE;
        chain->own = ReplaceProcedure(window, chain->unicode);
    }
    if (std::ranges::find(chain->procedures, procedure) == chain->procedures.end())
        chain->procedures.push_back(procedure);
}

} // namespace sample_host
