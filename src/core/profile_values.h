#pragma once
// Value rules of the settings file that need no Windows: integer text, the clamp rule,
// rectangles and the configuration name carried in the executable's file name.
#include <string>
#include <string_view>

namespace tessel {

struct RectI {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const RectI&) const = default;
};

// Leading-integer conversion: optional blanks, optional sign, digits; anything else ends it.
// Text without digits gives 0; values beyond the 32-bit range saturate.
int ParseLeadingInt(std::wstring_view text);

// Clamps to min..max unless either bound is -1, which switches the clamp off.
int ClampSetting(int value, int min, int max);

std::wstring FormatInt(int value);

// Parses "left;top;right;bottom". Fields are stored as they are read; a missing field stops
// the parse, leaves the remaining fields untouched and reports failure.
bool ParseRect(std::wstring_view text, RectI& rect);
std::wstring FormatRect(const RectI& rect);

// The name after "ini=" in an executable path (found at an index greater than 2), cut at its
// first "."; names of 3 characters or fewer do not count and give an empty result.
std::wstring ConfigNameFromExePath(std::wstring_view exePath);

// Splits a whole-section block ("key=value" lines) and finds a key, case-insensitively for ASCII.
bool FindSectionValue(std::wstring_view sectionLines, std::wstring_view key, std::wstring& value);

bool EqualsNoCaseAscii(std::wstring_view a, std::wstring_view b);

}  // namespace tessel
