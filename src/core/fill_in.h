#pragma once
// Texts with numbered blanks ("%1" to "%9") filled in. Translators may move or leave out the
// blanks, so a text from a language file can never take the program down as a printf format
// could.
#include <initializer_list>
#include <string>
#include <string_view>

namespace tessel {

inline std::wstring FillIn(std::wstring_view pattern, std::initializer_list<std::wstring_view> values) {
    std::wstring text;
    for (size_t i = 0; i < pattern.size(); ++i) {
        const wchar_t next = i + 1 < pattern.size() ? pattern[i + 1] : L'\0';
        if (pattern[i] == L'%' && next >= L'1' && next <= L'9') {
            const size_t index = static_cast<size_t>(next - L'1');
            if (index < values.size()) text += *(values.begin() + index);
            ++i;
        } else {
            text += pattern[i];
        }
    }
    return text;
}

}  // namespace tessel
