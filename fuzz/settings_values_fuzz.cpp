// Values of the settings file may have been edited by hand: integers, rectangles, whole
// sections and the configuration name in the program's file name are read from any text, and
// the file's bytes are checked for being text at all.
#include "core/profile_values.h"
#include "core/settings_text.h"
#include "fuzz_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // The whole file's bytes decide whether it is read or set aside.
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    fuzz::Check(!SettingsTextReadable(bytes) || bytes.find("\xFE\xFF") != 0);
    const std::wstring text = fuzz::WideOf(data, size);
    const int value = ParseLeadingInt(text);
    fuzz::Check(ParseLeadingInt(FormatInt(value)) == value);
    const int clamped = ClampSetting(value, 60, 300);
    fuzz::Check(clamped >= 60 && clamped <= 300);

    RectI rect;
    if (ParseRect(text, rect)) {
        RectI again;
        fuzz::Check(ParseRect(FormatRect(rect), again) && again == rect);
    }
    ConfigNameFromExePath(text);

    // The first line names a key; the rest is a section block to look it up in.
    const size_t lineEnd = text.find(L'\n');
    const std::wstring key = text.substr(0, lineEnd);
    std::wstring found;
    if (lineEnd != std::wstring::npos) FindSectionValue(std::wstring_view(text).substr(lineEnd + 1), key, found);
    return 0;
}
