#pragma once
// The buttons a user chose for a toolbar, kept in the settings as command ids in their order
// ("32861,0,32862": 0 is a separator).
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

// The kept text read against the buttons the toolbar can offer: ids it does not offer, second
// uses of an id and separators that would stand at an end or beside another are left out.
// Empty when nothing usable is left (the toolbar then keeps its own order).
std::vector<int> ParseToolbarButtons(std::wstring_view text, const std::vector<int>& offered);

std::wstring FormatToolbarButtons(const std::vector<int>& buttons);

}  // namespace tessel
