#include "features/preview_content.h"

#include <algorithm>
#include <array>

#include "core/utf8.h"

namespace tessel {
namespace {

constexpr std::array<std::wstring_view, 9> kPictureExtensions = {L"bmp", L"png", L"jpg", L"jpeg", L"gif",
                                                                 L"ico", L"tif", L"tiff", L"dib"};
constexpr std::array<std::wstring_view, 30> kTextExtensions = {
    L"txt", L"log", L"ini", L"inf", L"csv", L"md",  L"xml", L"json", L"html", L"htm",
    L"css", L"js",  L"c",   L"cpp", L"h",   L"hpp", L"cs",  L"py",   L"bat",  L"cmd",
    L"ps1", L"sh",  L"rc",  L"tsf", L"reg", L"sql", L"yml", L"yaml", L"nfo",  L"diz"};

std::wstring LowerExtension(std::wstring_view name) {
    const size_t dot = name.rfind(L'.');
    if (dot == std::wstring_view::npos || name.find_first_of(L"\\/", dot) != std::wstring_view::npos) return L"";
    std::wstring extension(name.substr(dot + 1));
    for (wchar_t& c : extension)
        if (c >= L'A' && c <= L'Z') c = static_cast<wchar_t>(c - L'A' + L'a');
    return extension;
}

template <size_t N>
bool Contains(const std::array<std::wstring_view, N>& list, std::wstring_view value) {
    return std::find(list.begin(), list.end(), value) != list.end();
}

// UTF-16 after its mark; a high surrogate cut from its low half by the limit is left out.
std::wstring DecodeMarkedUtf16(std::string_view bytes, bool bigEndian) {
    std::wstring text = DecodeUtf16(bytes.substr(2), bigEndian);
    if (!text.empty() && text.back() >= 0xD800 && text.back() < 0xDC00) text.pop_back();
    return text;
}

// Up to three bytes at the end that begin a sequence the limit cut short.
size_t CutSequenceLength(std::string_view bytes) {
    for (size_t back = 1; back <= 3 && back <= bytes.size(); ++back) {
        const unsigned char c = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if ((c & 0xC0) == 0x80) continue;  // a continuation byte: look further back
        const size_t needed = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
        return needed > back ? back : 0;
    }
    return 0;
}

std::wstring WithCrLf(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size() + text.size() / 16);
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i];
        if (c == L'\r') {
            out += L"\r\n";
            if (i + 1 < text.size() && text[i + 1] == L'\n') ++i;
        } else if (c == L'\n') {
            out += L"\r\n";
        } else if (c == L'\0') {
            out += L' ';  // the edit control would end the text there
        } else {
            out += c;
        }
    }
    return out;
}

}  // namespace

PreviewKind PreviewKindOf(std::wstring_view name, bool folder) {
    if (folder) return PreviewKind::kFolder;
    const std::wstring extension = LowerExtension(name);
    if (Contains(kPictureExtensions, extension)) return PreviewKind::kPicture;
    if (Contains(kTextExtensions, extension)) return PreviewKind::kText;
    return PreviewKind::kOther;
}

bool LooksLikeText(std::string_view bytes) {
    if (bytes.size() >= 2 && ((bytes[0] == '\xFF' && bytes[1] == '\xFE') || (bytes[0] == '\xFE' && bytes[1] == '\xFF')))
        return true;
    size_t controls = 0;
    for (const char byte : bytes) {
        const unsigned char c = static_cast<unsigned char>(byte);
        if (c == 0) return false;
        if (c < 0x20 && c != '\t' && c != '\n' && c != '\r' && c != '\f' && c != 0x1A) ++controls;
    }
    return controls * 50 <= bytes.size();  // at most one in fifty
}

std::wstring DecodePreviewText(std::string_view bytes, bool cut) {
    if (bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE') return WithCrLf(DecodeMarkedUtf16(bytes, false));
    if (bytes.size() >= 2 && bytes[0] == '\xFE' && bytes[1] == '\xFF') return WithCrLf(DecodeMarkedUtf16(bytes, true));
    if (bytes.size() >= 3 && bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
    const std::string_view whole = cut ? bytes.substr(0, bytes.size() - CutSequenceLength(bytes)) : bytes;
    std::wstring text;
    if (DecodeUtf8(whole, text)) return WithCrLf(text);
    return WithCrLf(DecodeUtf8OrLatin1(bytes));
}

PictureSize FitPicture(PictureSize picture, PictureSize box) {
    if (picture.width <= 0 || picture.height <= 0 || box.width <= 0 || box.height <= 0) return {};
    if (picture.width <= box.width && picture.height <= box.height) return picture;
    // Compare the two ratios without dividing: the narrower side of the box decides.
    const long long byWidth = static_cast<long long>(box.width) * picture.height;
    const long long byHeight = static_cast<long long>(box.height) * picture.width;
    PictureSize fitted;
    if (byWidth <= byHeight) {
        fitted.width = box.width;
        fitted.height = static_cast<int>(byWidth / picture.width);
    } else {
        fitted.height = box.height;
        fitted.width = static_cast<int>(byHeight / picture.height);
    }
    fitted.width = std::max(fitted.width, 1);
    fitted.height = std::max(fitted.height, 1);
    return fitted;
}

}  // namespace tessel
