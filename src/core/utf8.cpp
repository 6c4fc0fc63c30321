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

namespace tessel {

std::string EncodeUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t c = static_cast<uint32_t>(text[i]);
        if (c >= 0xD800 && c <= 0xDBFF && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF)
            c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<uint32_t>(text[++i]) - 0xDC00);
        else if ((c >= 0xD800 && c <= 0xDFFF) || c > 0x10FFFF)
            c = 0xFFFD;
        if (c < 0x80) {
            bytes += static_cast<char>(c);
        } else if (c < 0x800) {
            bytes += static_cast<char>(0xC0 | (c >> 6));
            bytes += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            bytes += static_cast<char>(0xE0 | (c >> 12));
            bytes += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            bytes += static_cast<char>(0xF0 | (c >> 18));
            bytes += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            bytes += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (c & 0x3F));
        }
    }
    return bytes;
}

std::wstring DecodeUtf16(std::string_view bytes, bool bigEndian) {
    std::wstring text;
    text.reserve(bytes.size() / 2);
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const unsigned a = static_cast<unsigned char>(bytes[i]), b = static_cast<unsigned char>(bytes[i + 1]);
        text += static_cast<wchar_t>(bigEndian ? (a << 8 | b) : (b << 8 | a));
    }
    return text;
}

std::wstring DecodeLatin1(std::string_view bytes) {
    return std::wstring(reinterpret_cast<const unsigned char*>(bytes.data()),
                        reinterpret_cast<const unsigned char*>(bytes.data()) + bytes.size());
}

std::wstring DecodeTextFile(std::string_view bytes, const SingleByteDecoder& otherwise) {
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    const size_t size = bytes.size();
    if (size >= 2 && data[0] == 0xFE && data[1] == 0xFF) return DecodeUtf16(bytes.substr(2), true);
    const bool mark = size >= 2 && data[0] == 0xFF && data[1] == 0xFE;
    // Without the mark, UTF-16LE shows as ASCII bytes followed by zeros.
    if (mark || (size >= 4 && data[0] != 0 && data[1] == 0 && data[3] == 0))
        return DecodeUtf16(bytes.substr(mark ? 2 : 0), false);
    std::string_view rest = bytes;
    if (rest.substr(0, 3) == "\xEF\xBB\xBF") rest.remove_prefix(3);
    std::wstring text;
    return DecodeUtf8(rest, text) ? text : otherwise(bytes);
}

}  // namespace tessel
