// What the explanations of failed calls share.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "explain/explain_nothing.h"

namespace explain {

// Whether the member looks for a window by criteria that its arguments give.
bool GoesByCriteria(std::string_view member);

// The argument at that place; empty or 0 where it was left out or is of another type.
std::string TextAt(const FailedCall& call, std::size_t place);
std::int64_t NumberAt(const FailedCall& call, std::size_t place);

// The call with another argument at that place, in VBScript; empty where it is not known how the object was
// reached.
std::string LineWith(const FailedCall& call, std::size_t place, Argument argument);
// The object's members before, then `steps`; the same for empty.
std::string LineOf(const FailedCall& call, const Call& steps);

// The window that makes the line of a call mended for it, verified by the search itself. Empty where no
// change of the arguments reaches it.
std::string MendedLine(const FailedCall& call, const RejectedWindow& rejected);

// The navigations that do not go by criteria ("ActiveDialog", "MainMenu", "WindowByID" ...). None for another
// member.
std::optional<Explanation> ExplainNavigation(const FailedCall& call, ULONGLONG end);
// The members that look for an item ("ItemByPath", "GetItemByID", "SelectItemByName" ...) or act on one.
std::optional<Explanation> ExplainItem(const FailedCall& call, ULONGLONG end);

} // namespace explain
