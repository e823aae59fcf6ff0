#include "automation/guarded.h"

#include "automation/conversions.h"

namespace automation {

void SetErrorText(const char* text) noexcept {
    ICreateErrorInfo* creation = nullptr;
    if (FAILED(CreateErrorInfo(&creation))) {
        return;
    }
    try {
        creation->SetDescription(ToWide(text).data());
        creation->SetSource(ToWide("Ghosthand").data());
        IErrorInfo* information = nullptr;
        if (SUCCEEDED(creation->QueryInterface(IID_IErrorInfo, reinterpret_cast<void**>(&information)))) {
            SetErrorInfo(0, information);
            information->Release();
        }
    } catch (const std::bad_alloc&) {
        ClearErrorText();
    }
    creation->Release();
}

void ClearErrorText() noexcept {
    SetErrorInfo(0, nullptr);
}

} // namespace automation
