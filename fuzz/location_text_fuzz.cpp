// Typed, pasted and dropped locations: "ftp." hosts, "file://" addresses with percent escapes,
// quotes and blanks, and the kind of a dropped file by its name.
#include "fuzz_text.h"
#include "nav/drop_text.h"
#include "view/location_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::WideOf(data, size);
    const std::wstring location = NormalizeLocationText(text);
    fuzz::Check(location.size() <= text.size() + 6);  // at most the "ftp://" put in front
    KindOfDroppedFile(text);
    return 0;
}
