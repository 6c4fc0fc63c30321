#include "core/profile_values.h"

#include <climits>
#include <cwchar>

namespace tessel {

int ParseLeadingInt(std::wstring_view text) {
    size_t i = 0;
    while (i < text.size() && (text[i] == L' ' || text[i] == L'\t' || text[i] == L'\r' || text[i] == L'\n'))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == L'-' || text[i] == L'+')) negative = text[i++] == L'-';
    long long value = 0;
    for (; i < text.size() && text[i] >= L'0' && text[i] <= L'9'; ++i) {
        value = value * 10 + (text[i] - L'0');
        if (value > 1LL + INT_MAX) value = 1LL + INT_MAX;  // saturate, keep scanning
    }
    if (negative) value = -value;
    if (value > INT_MAX) return INT_MAX;
    if (value < INT_MIN) return INT_MIN;
    return static_cast<int>(value);
}

int ClampSetting(int value, int min, int max) {
    if (min == -1 || max == -1) return value;
    if (value < min) return min;
    if (value > max) return max;
    return value;
}

std::wstring FormatInt(int value) {
    wchar_t buffer[16];
    std::swprintf(buffer, 16, L"%d", value);
    return buffer;
}

bool ParseRect(std::wstring_view text, RectI& rect) {
    int* fields[] = {&rect.left, &rect.top, &rect.right, &rect.bottom};
    size_t start = 0;
    for (int* field : fields) {
        if (start > text.size()) return false;
        size_t end = text.find(L';', start);
        std::wstring_view piece = text.substr(start, end == std::wstring_view::npos ? text.npos : end - start);
        if (piece.empty()) return false;
        *field = ParseLeadingInt(piece);
        start = end == std::wstring_view::npos ? text.size() + 1 : end + 1;
    }
    return true;
}

std::wstring FormatRect(const RectI& r) {
    wchar_t buffer[64];
    std::swprintf(buffer, 64, L"%d;%d;%d;%d", r.left, r.top, r.right, r.bottom);
    return buffer;
}

std::wstring ConfigNameFromExePath(std::wstring_view exePath) {
    size_t at = exePath.find(L"ini=");
    if (at == std::wstring_view::npos || at <= 2) return {};
    std::wstring_view name = exePath.substr(at + 4);
    name = name.substr(0, name.find(L'.'));
    if (name.size() <= 3) return {};
    return std::wstring(name);
}

static wchar_t FoldAscii(wchar_t c) { return (c >= L'A' && c <= L'Z') ? static_cast<wchar_t>(c + 32) : c; }

bool EqualsNoCaseAscii(std::wstring_view a, std::wstring_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
    return true;
}

static std::wstring_view Trim(std::wstring_view s) {
    while (!s.empty() && (s.front() == L' ' || s.front() == L'\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == L' ' || s.back() == L'\t' || s.back() == L'\r')) s.remove_suffix(1);
    return s;
}

bool FindSectionValue(std::wstring_view lines, std::wstring_view key, std::wstring& value) {
    size_t start = 0;
    while (start < lines.size()) {
        size_t end = lines.find(L'\n', start);
        if (end == std::wstring_view::npos) end = lines.size();
        std::wstring_view line = lines.substr(start, end - start);
        start = end + 1;
        size_t eq = line.find(L'=');
        if (eq == std::wstring_view::npos) continue;
        if (EqualsNoCaseAscii(Trim(line.substr(0, eq)), key)) {
            value = std::wstring(Trim(line.substr(eq + 1)));
            return true;
        }
    }
    return false;
}

}  // namespace tessel
