#pragma once
// The settings store as the rest of the program sees it: named values in sections, every put
// on disk at once. The Windows store (CMyProfStr) implements it; tests hand in an in-memory one.
#include <string>
#include <string_view>

#include "core/profile_values.h"

namespace tessel {

class ISettingsStore {
public:
    virtual ~ISettingsStore() = default;

    // Reads text (at most 1,023 characters are kept); a missing key gives the default.
    virtual std::wstring GetString(std::wstring_view section, std::wstring_view key,
                                   std::wstring_view defaultText) = 0;
    virtual bool PutString(std::wstring_view section, std::wstring_view key, std::wstring_view value) = 0;
    // Whole section as "key=value" lines separated by '\n'.
    virtual std::wstring GetSection(std::wstring_view section) = 0;
    virtual bool PutSection(std::wstring_view section, std::wstring_view lines) = 0;

    // False in registry mode (an installed copy); the registry operations only act then.
    virtual bool IsFileMode() const = 0;
    virtual int RegGetInt(std::wstring_view name, int defaultValue) = 0;
    virtual bool RegPutInt(std::wstring_view name, int value) = 0;

    // Typed helpers shared by every store.
    int GetInt(std::wstring_view section, std::wstring_view key, int defaultValue, int min = -1, int max = -1) {
        return ClampSetting(ParseLeadingInt(GetString(section, key, FormatInt(defaultValue))), min, max);
    }
    bool PutInt(std::wstring_view section, std::wstring_view key, int value) {
        return PutString(section, key, FormatInt(value));
    }
    bool GetRect(std::wstring_view section, std::wstring_view key, RectI& rect) {
        return ParseRect(GetString(section, key, L""), rect);
    }
};

inline constexpr size_t kSettingsValueLimit = 1024;  // characters, terminator included

}  // namespace tessel
