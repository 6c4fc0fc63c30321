#pragma once
// What the address bar makes of a typed or pasted location before the shell parses it: blanks
// trimmed, one "%NAME%" expansion that stands for the whole text, "file://" and "ftp." forms,
// and a bare drive letter ("c", "c:") as its root.
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

inline constexpr size_t kEnvironmentValueLimit = 520;

// An environment variable's value; none when it is not set (or longer than the limit).
using EnvironmentLookup = std::function<std::optional<std::wstring>(std::wstring_view name)>;

struct TypedAddress {
    std::wstring shellPath;  // tried first as a folder's path; empty: nothing to try
    // Tried in order with the desktop's parser when the shell path is not a folder.
    std::vector<std::wstring> parseForms;
};

TypedAddress PlanTypedAddress(std::wstring_view typed, const EnvironmentLookup& environment);

// The whole text replaced by the value of the variable named between its first two "%"; the
// text as it was when there is no such pair or no such variable.
std::wstring ExpandFirstVariable(std::wstring_view text, const EnvironmentLookup& environment);

}  // namespace tessel
