#pragma once
// UTF-8 as files and addresses carry it, read into the program's UTF-16 text.
#include <string>
#include <string_view>

namespace tessel {

// False for any byte sequence that is not well-formed UTF-8 (overlong forms, surrogates and
// values beyond U+10FFFF included); `text` then holds what was read up to there.
bool DecodeUtf8(std::string_view bytes, std::wstring& text);

// Well-formed sequences as characters, every other byte as the Latin-1 character of its value.
std::wstring DecodeUtf8OrLatin1(std::string_view bytes);

}  // namespace tessel

namespace tessel {

// The text as UTF-8; a lone surrogate becomes U+FFFD.
std::string EncodeUtf8(std::wstring_view text);

}  // namespace tessel
