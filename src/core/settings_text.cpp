#include "core/settings_text.h"

namespace tessel {

bool SettingsTextReadable(std::string_view bytes) {
    if (bytes.empty()) return true;
    if (bytes.starts_with("\xFE\xFF")) return false;  // big-endian: read as garbage
    if (bytes.starts_with("\xFF\xFE")) {
        if (bytes.size() % 2 != 0) return false;
        for (size_t i = 2; i + 1 < bytes.size(); i += 2)
            if (bytes[i] == '\0' && bytes[i + 1] == '\0') return false;
        return true;
    }
    return bytes.find('\0') == std::string_view::npos;
}

}  // namespace tessel
