#pragma once
// The name a copy gets when it lands beside its original: "report (2).txt", then (3) and on.
#include <functional>
#include <string>
#include <string_view>

namespace tessel {

// `taken` answers whether a name is in use; after 9,999 tries the last candidate is returned.
std::wstring FreeCopyName(std::wstring_view name, const std::function<bool(const std::wstring&)>& taken);

}  // namespace tessel
