// What the type library says of a member: its parameters, their defaults and its result.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>

#include "explain/call.h"

namespace trace {

struct Parameter {
    bool isFlags = false;
    std::optional<explain::Argument> defaultValue;
};

struct MemberFacts {
    std::string name;   // as scripts write it
    std::string access; // "method", "get" or "put"
    std::vector<Parameter> parameters;
    std::string resultClass; // of a member that gives an object; empty for another
};

// Reads each member once.
class MemberFactsTable {
public:
    // `member` is the name in C++: that of a property begins with "get_" or "put_". Parameters are missing
    // where the type library cannot be read.
    // The facts stay valid with the table.
    const MemberFacts& Of(const GUID& interfaceId, const char* member);

private:
    std::map<std::pair<const GUID*, std::string>, MemberFacts> m_known;
};

} // namespace trace
