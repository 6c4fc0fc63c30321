#include "view/toolbar_buttons.h"

#include <algorithm>

namespace tessel {
namespace {

bool ReadNumber(std::wstring_view part, int& value) {
    while (!part.empty() && part.front() == L' ') part.remove_prefix(1);
    while (!part.empty() && part.back() == L' ') part.remove_suffix(1);
    if (part.empty() || part.size() > 6) return false;
    value = 0;
    for (const wchar_t c : part) {
        if (c < L'0' || c > L'9') return false;
        value = value * 10 + (c - L'0');
    }
    return true;
}

}  // namespace

std::vector<int> ParseToolbarButtons(std::wstring_view text, const std::vector<int>& offered) {
    std::vector<int> buttons;
    while (!text.empty()) {
        const size_t comma = text.find(L',');
        int id = 0;
        const bool read = ReadNumber(text.substr(0, comma), id);
        text = comma == std::wstring_view::npos ? std::wstring_view() : text.substr(comma + 1);
        if (!read) continue;
        if (id == 0) {
            if (!buttons.empty() && buttons.back() != 0) buttons.push_back(0);
        } else if (std::find(offered.begin(), offered.end(), id) != offered.end() &&
                   std::find(buttons.begin(), buttons.end(), id) == buttons.end()) {
            buttons.push_back(id);
        }
    }
    if (!buttons.empty() && buttons.back() == 0) buttons.pop_back();
    return buttons;
}

std::wstring FormatToolbarButtons(const std::vector<int>& buttons) {
    std::wstring text;
    for (const int id : buttons) {
        if (!text.empty()) text += L',';
        text += std::to_wstring(id);
    }
    return text;
}

}  // namespace tessel
