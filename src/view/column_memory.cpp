#include "view/column_memory.h"

#include <cwchar>
#include <cwctype>

#include "core/profile_values.h"

namespace tessel {

int32_t ColumnCheckValue(const uint8_t* bytes, size_t count) {
    uint32_t h = 0;
    for (size_t i = 0; i < count; ++i) {
        const uint32_t b = static_cast<uint32_t>(static_cast<int32_t>(static_cast<int8_t>(bytes[i])));
        if (b != 0) h *= b;
        h += b;
    }
    return static_cast<int32_t>(h);
}

std::wstring EncodeColumnValue(const std::vector<uint8_t>& bytes) {
    static const wchar_t kHex[] = L"0123456789ABCDEF";
    const size_t count = bytes.size() < kColumnStreamLimit ? bytes.size() : kColumnStreamLimit;
    std::wstring text;
    text.reserve(count * 3 + 32);
    for (size_t i = 0; i < count; ++i) {
        text += L'%';
        text += kHex[bytes[i] >> 4];
        text += kHex[bytes[i] & 15];
    }
    wchar_t tail[48];
    std::swprintf(tail, 48, L"|CODEMODE1|%d|%d", static_cast<int>(ColumnCheckValue(bytes.data(), count)),
                  static_cast<int>(count));
    return text + tail;
}

static int HexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    return -1;
}

static bool IsDecimal(std::wstring_view s) {
    if (!s.empty() && s.front() == L'-') s.remove_prefix(1);
    if (s.empty() || s.size() > 11) return false;
    for (wchar_t c : s)
        if (c < L'0' || c > L'9') return false;
    return true;
}

bool DecodeColumnValue(std::wstring_view text, std::vector<uint8_t>& bytes) {
    std::wstring_view fields[4];
    for (int i = 0; i < 4; ++i) {
        size_t bar = text.find(L'|');
        if (i < 3 && bar == std::wstring_view::npos) return false;
        fields[i] = i < 3 ? text.substr(0, bar) : text;
        if (i < 3) text.remove_prefix(bar + 1);
    }
    if (fields[1] != L"CODEMODE1" || !IsDecimal(fields[2]) || !IsDecimal(fields[3])) return false;
    std::wstring_view data = fields[0];
    if (data.size() % 3 != 0 || data.size() / 3 > kColumnStreamLimit) return false;
    std::vector<uint8_t> decoded;
    decoded.reserve(data.size() / 3);
    for (size_t i = 0; i < data.size(); i += 3) {
        int high = HexDigit(data[i + 1]), low = HexDigit(data[i + 2]);
        if (data[i] != L'%' || high < 0 || low < 0) return false;
        decoded.push_back(static_cast<uint8_t>(high * 16 + low));
    }
    if (ParseLeadingInt(fields[3]) != static_cast<int>(decoded.size())) return false;
    if (ParseLeadingInt(fields[2]) != ColumnCheckValue(decoded.data(), decoded.size())) return false;
    bytes = std::move(decoded);
    return true;
}

bool ColumnKeyNeedsCount(std::wstring_view parsingName) {
    return parsingName.find(L'{') == std::wstring_view::npos && (parsingName.empty() || parsingName[0] != 1);
}

std::wstring ColumnKey(std::wstring_view parsingName, int columnCount) {
    if (!ColumnKeyNeedsCount(parsingName)) return L"Spatlen_" + std::wstring(parsingName);
    if (columnCount > 0) return L"Spatlen_" + FormatInt(columnCount);
    std::wstring lower(parsingName.substr(0, 6));
    for (wchar_t& c : lower) c = static_cast<wchar_t>(std::towlower(c));
    return lower == L"ftp://" ? L"Spatlen_FTP" : L"";
}

std::wstring ColumnSectionName(int major, int minor, std::wstring_view panelName) {
    wchar_t head[48];
    std::swprintf(head, 48, L"Column_OS_%d.%d_", major, minor);
    return head + std::wstring(panelName);
}

}  // namespace tessel
