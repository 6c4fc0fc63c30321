#pragma once
// Typed or pasted locations before they are parsed: "ftp." hosts get their scheme, "file://"
// addresses become paths, surrounding blanks and quotes go.
#include <string>
#include <string_view>

namespace tessel {

std::wstring NormalizeLocationText(std::wstring_view text);
// True when the text begins with the prefix, whatever its case; the prefix is lower case.
bool StartsWithNoCase(std::wstring_view text, std::wstring_view lowerPrefix);

}  // namespace tessel
