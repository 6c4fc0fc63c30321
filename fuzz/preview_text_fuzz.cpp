// The first bytes of a previewed file: told text or not, and decoded in whatever encoding,
// cut anywhere. The text never holds a zero and its line ends are all CR LF.
#include <string_view>

#include "features/preview_content.h"
#include "fuzz_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    LooksLikeText(bytes);
    for (const bool cut : {false, true}) {
        const std::wstring text = DecodePreviewText(bytes, cut);
        for (size_t i = 0; i < text.size(); ++i) {
            fuzz::Check(text[i] != L'\0');
            if (text[i] == L'\r') fuzz::Check(i + 1 < text.size() && text[i + 1] == L'\n');
            if (text[i] == L'\n') fuzz::Check(i > 0 && text[i - 1] == L'\r');
        }
    }
    return 0;
}
