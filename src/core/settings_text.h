#pragma once
// Whether a settings file can be read as text by the profile functions: UTF-16 little-endian with
// its mark, or 8-bit text. A file that cannot (binary data, big-endian UTF-16, a cut UTF-16 file)
// is set aside instead of being read as defaults and overwritten.
#include <string_view>

namespace tessel {

bool SettingsTextReadable(std::string_view bytes);

}  // namespace tessel
