#pragma once
// UTF-8 as files and addresses carry it, read into the program's UTF-16 text, and text files
// in the encodings users bring.
#include <functional>
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

// Pairs of bytes as UTF-16 units in the given order; an odd last byte is dropped.
std::wstring DecodeUtf16(std::string_view bytes, bool bigEndian);

// Every byte as the Latin-1 character of its value.
std::wstring DecodeLatin1(std::string_view bytes);

// A text file's bytes: UTF-16LE with or without its byte-order mark, UTF-16BE with its mark;
// else UTF-8 (with or without its mark) when the bytes are well-formed UTF-8, as hand-edited files
// usually are; else what `otherwise` makes of them (single bytes in a code page).
using SingleByteDecoder = std::function<std::wstring(std::string_view bytes)>;
std::wstring DecodeTextFile(std::string_view bytes, const SingleByteDecoder& otherwise = DecodeLatin1);

}  // namespace tessel
