#include "view/location_text.h"

#include <cwctype>
#include <string>

#include "core/utf8.h"

namespace tessel {
namespace {

int Hex(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    c = static_cast<wchar_t>(std::towlower(c));
    return c >= L'a' && c <= L'f' ? c - L'a' + 10 : -1;
}

// Percent escapes carry UTF-8 bytes; a malformed escape stays as it was written, and bytes that
// are not UTF-8 are read as Latin-1 characters.
std::wstring DecodePercent(std::wstring_view text) {
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        wchar_t c = text[i];
        if (c == L'%' && i + 2 < text.size() && Hex(text[i + 1]) >= 0 && Hex(text[i + 2]) >= 0) {
            bytes += static_cast<char>(Hex(text[i + 1]) * 16 + Hex(text[i + 2]));
            i += 2;
        } else if (c < 0x80) {
            bytes += static_cast<char>(c);
        } else {  // already a character: keep it as UTF-8
            char32_t cp = c;
            if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size()) cp = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
            if (cp < 0x800) {
                bytes += static_cast<char>(0xC0 | (cp >> 6));
            } else if (cp < 0x10000) {
                bytes += static_cast<char>(0xE0 | (cp >> 12));
                bytes += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            } else {
                bytes += static_cast<char>(0xF0 | (cp >> 18));
                bytes += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
                bytes += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            }
            bytes += static_cast<char>(0x80 | (cp & 0x3F));
        }
    }
    return DecodeUtf8OrLatin1(bytes);
}

std::wstring FileUrlToPath(std::wstring_view rest) {
    if (StartsWithNoCase(rest, L"localhost/")) rest.remove_prefix(9);
    std::wstring path = DecodePercent(rest);
    for (wchar_t& c : path)
        if (c == L'/') c = L'\\';
    // "file:///C:/x" gives "\C:\x"; "file://server/share" gives a UNC path.
    if (path.size() >= 3 && path[0] == L'\\' && path[2] == L':') return path.substr(1);
    if (path.size() >= 2 && path[1] == L':') return path;
    if (!path.empty() && path[0] == L'\\') return path;
    return L"\\\\" + path;
}

}  // namespace

bool StartsWithNoCase(std::wstring_view text, std::wstring_view lowerPrefix) {
    if (text.size() < lowerPrefix.size()) return false;
    for (size_t i = 0; i < lowerPrefix.size(); ++i)
        if (static_cast<wchar_t>(std::towlower(text[i])) != lowerPrefix[i]) return false;
    return true;
}

std::wstring NormalizeLocationText(std::wstring_view text) {
    while (!text.empty() && (std::iswspace(text.front()) || text.front() == L'"')) text.remove_prefix(1);
    while (!text.empty() && (std::iswspace(text.back()) || text.back() == L'"')) text.remove_suffix(1);
    if (StartsWithNoCase(text, L"ftp.")) return L"ftp://" + std::wstring(text);
    if (StartsWithNoCase(text, L"file://")) return FileUrlToPath(text.substr(7));
    return std::wstring(text);
}

}  // namespace tessel
