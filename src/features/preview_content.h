#pragma once
// What the preview pane shows for an item, decided without the platform: pictures by their
// extension, text by its extension or by what its first bytes look like, and the text itself
// decoded from the first 64 KB whatever encoding it is in.
#include <cstddef>
#include <string>
#include <string_view>

namespace tessel {

enum class PreviewKind { kPicture, kText, kFolder, kOther };

constexpr size_t kTextPreviewBytes = 64 * 1024;
// Pictures larger than this are shown as files: decoding them would hold the memory and the
// worker for too long.
constexpr unsigned long long kLargestPreviewPicture = 256ull * 1024 * 1024;

// By the name alone; a file of kind kOther may still turn out to be text (LooksLikeText).
PreviewKind PreviewKindOf(std::wstring_view name, bool folder);

// Text has no zero bytes (UTF-16 with its byte-order mark aside) and few control characters.
bool LooksLikeText(std::string_view bytes);

// UTF-16 (either order) or UTF-8 with their byte-order marks, UTF-8 without one, else Latin-1.
// When `cut` (the file goes on beyond these bytes) a character the limit cut in two is dropped.
// Line ends become CR LF for the edit control.
std::wstring DecodePreviewText(std::string_view bytes, bool cut);

struct PictureSize {
    int width = 0, height = 0;
};

// The size a picture is shown at: scaled down to fit the box with its proportions kept, never
// enlarged, never below one pixel in either direction.
PictureSize FitPicture(PictureSize picture, PictureSize box);

}  // namespace tessel
