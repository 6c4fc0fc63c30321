#include "core/utf8.h"

namespace tessel {
namespace {

// The length of the well-formed sequence at the start of `bytes` and its value; 0 when there is none.
size_t Sequence(std::string_view bytes, char32_t& value) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byte(0);
    size_t length = lead < 0x80 ? 1 : (lead >> 5) == 6 ? 2 : (lead >> 4) == 14 ? 3 : (lead >> 3) == 30 ? 4 : 0;
    if (length == 0 || length > bytes.size()) return 0;
    value = length == 1 ? lead : lead & (0x7F >> length);
    for (size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
        value = (value << 6) | (byte(i) & 0x3F);
    }
    static constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (value < kSmallest[length] || value > 0x10FFFF || (value >= 0xD800 && value < 0xE000)) return 0;
    return length;
}

void Append(std::wstring& text, char32_t value) {
    if (value < 0x10000) {
        text += static_cast<wchar_t>(value);
    } else {
        value -= 0x10000;
        text += static_cast<wchar_t>(0xD800 + (value >> 10));
        text += static_cast<wchar_t>(0xDC00 + (value & 0x3FF));
    }
}

}  // namespace

bool DecodeUtf8(std::string_view bytes, std::wstring& text) {
    text.clear();
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        char32_t value = 0;
        const size_t length = Sequence(bytes, value);
        if (length == 0) return false;
        Append(text, value);
        bytes.remove_prefix(length);
    }
    return true;
}

std::wstring DecodeUtf8OrLatin1(std::string_view bytes) {
    std::wstring text;
    while (!bytes.empty()) {
        char32_t value = 0;
        size_t length = Sequence(bytes, value);
        if (length == 0) {
            value = static_cast<unsigned char>(bytes[0]);
            length = 1;
        }
        Append(text, value);
        bytes.remove_prefix(length);
    }
    return text;
}

}  // namespace tessel
