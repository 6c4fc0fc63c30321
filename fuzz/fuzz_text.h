#pragma once
// The fuzzers' bytes as the wide text the readers take: each pair of bytes one UTF-16 unit, so
// every character, surrogate halves and nulls included, can reach the reader.
#include <cstddef>
#include <cstdint>
#include <string>

namespace tessel::fuzz {

inline std::wstring WideOf(const uint8_t* data, size_t size) {
    std::wstring text(size / 2, L'\0');
    for (size_t i = 0; i < text.size(); ++i)
        text[i] = static_cast<wchar_t>(data[2 * i] | (data[2 * i + 1] << 8));
    return text;
}

// Fails loudly: libFuzzer reports the input that broke the rule.
inline void Check(bool rule) {
    if (!rule) __builtin_trap();
}

}  // namespace tessel::fuzz
