#pragma once
// Case folding of names before they are matched. Names are mostly ASCII: one pass folds the
// ASCII letters (written so the compiler can vectorise it) and says whether the locale's
// rules are needed for the rest.
#include <cstddef>

namespace tessel {

// Folds the case of a text in place (the locale's rules on Windows).
using CaseFold = void (*)(wchar_t* text, size_t length);

template <wchar_t From, int Shift>
bool FoldAsciiLetters(wchar_t* text, size_t length) {
    unsigned seen = 0;  // an OR of every character: at 0x80 or above, some are beyond ASCII
    for (size_t i = 0; i < length; ++i) {
        const wchar_t c = text[i];
        seen |= static_cast<unsigned>(c);
        text[i] = static_cast<unsigned>(c - From) < 26u ? static_cast<wchar_t>(c + Shift) : c;
    }
    return seen >= 0x80;
}
inline bool FoldAsciiUpper(wchar_t* text, size_t length) { return FoldAsciiLetters<L'a', -32>(text, length); }
inline bool FoldAsciiLower(wchar_t* text, size_t length) { return FoldAsciiLetters<L'A', 32>(text, length); }

// With the C library's towupper/towlower for the rest, for tests and tools.
void FoldUpperPortable(wchar_t* text, size_t length);
void FoldLowerPortable(wchar_t* text, size_t length);

}  // namespace tessel
