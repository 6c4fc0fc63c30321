#include "features/case_fold.h"

#include <cwctype>

namespace tessel {

void FoldUpperPortable(wchar_t* text, size_t length) {
    if (!FoldAsciiUpper(text, length)) return;
    for (size_t i = 0; i < length; ++i)
        if (text[i] >= 0x80) text[i] = static_cast<wchar_t>(std::towupper(text[i]));
}

void FoldLowerPortable(wchar_t* text, size_t length) {
    if (!FoldAsciiLower(text, length)) return;
    for (size_t i = 0; i < length; ++i)
        if (text[i] >= 0x80) text[i] = static_cast<wchar_t>(std::towlower(text[i]));
}

}  // namespace tessel
