// What the trace says in words. Texts are UTF-8.
#pragma once

#include <string>

#include "engine/diagnostics.h"
#include "engine/window_search.h"

namespace trace {

std::string_view StepKindName(engine::diagnostics::StepKind kind) noexcept;
std::string StepText(const engine::diagnostics::Step& step);
// Empty where there is nothing to say.
std::string OutcomeText(const engine::diagnostics::Step& step, const engine::diagnostics::StepResult& result);
std::string SearchText(const engine::WindowCriteria& criteria);
// Of the calling thread's last failed call, whose error information stays as it is.
std::string ErrorText(HRESULT result);

} // namespace trace
