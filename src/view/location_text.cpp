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

// Percent escapes carry UTF-8 bytes: each run of escapes is decoded on its own, a run that is not
// UTF-8 as Latin-1 characters; a malformed escape and every other character stay as written
// (re-encoding them could not keep a lone surrogate).
std::wstring DecodePercent(std::wstring_view text) {
    std::wstring decoded;
    std::string run;
    const auto flush = [&] {
        decoded += DecodeUtf8OrLatin1(run);
        run.clear();
    };
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i];
        if (c == L'%' && i + 2 < text.size() && Hex(text[i + 1]) >= 0 && Hex(text[i + 2]) >= 0) {
            run += static_cast<char>(Hex(text[i + 1]) * 16 + Hex(text[i + 2]));
            i += 2;
        } else {
            flush();
            decoded += c;
        }
    }
    flush();
    return decoded;
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
