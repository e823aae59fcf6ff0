// Input: the path, then bytes that choose its kind and bound.
#include "engine/path_tokens.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <limits>

#include "fuzz/check.h"

namespace {

using engine::PathKind;
using Tokens = std::vector<std::string>;

Tokens ByteByByte(std::string_view path, std::string_view separators) {
    Tokens tokens;
    bool inside = false;
    for (const char byte : path) {
        const bool separates = separators.find(byte) != std::string_view::npos;
        if (!separates && !inside)
            tokens.emplace_back();
        if (!separates)
            tokens.back() += byte;
        inside = !separates;
    }
    return tokens;
}

int NumberAsTheLibraryReadsIt(const std::string& token) {
    const long long number = std::strtoll(token.c_str(), nullptr, 10);
    return static_cast<int>(
        std::clamp<long long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    PathKind kind = input.PickValueInArray<PathKind>(
        {engine::kTreeNumberPath, engine::kTreeNamePath, engine::kOptionTreePath, engine::kMenuNumberPath});
    if (input.ConsumeBool())
        kind.longest = input.ConsumeIntegral<std::uint8_t>();
    const std::string path = input.ConsumeRemainingBytesAsString();

    const std::optional<Tokens> tokens = engine::PathTokens(path, kind);
    Check(tokens.has_value() == (path.size() <= kind.longest), "a path is taken unless it is too long");
    if (!tokens)
        return 0;
    Check(*tokens == ByteByByte(path, kind.separators), "tokens are what lies between separators");
    std::string joined;
    for (const std::string& token : *tokens) {
        Check(!token.empty(), "no token is empty");
        Check(token.find_first_of(kind.separators) == std::string::npos, "no token contains a separator");
        Check(engine::PathNumber(token) == NumberAsTheLibraryReadsIt(token),
              "numbers are read as by strtoll");
        joined += token + kind.separators.back();
    }
    kind.longest = joined.size();
    Check(engine::PathTokens(joined, kind) == tokens, "tokens that are joined come apart again");
    return 0;
}
