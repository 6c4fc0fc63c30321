#include "features/size_format.h"

#include <cstdio>

#include "core/settings_store.h"

namespace tessel {
namespace {

std::wstring Printed(const wchar_t* format, double value) {
    wchar_t text[400];  // "%f" of the largest 64-bit count fits
    std::swprintf(text, 400, format, value);
    return text;
}

std::wstring DigFormatted(double value, int dig) {
    switch (dig) {
    case 1: return Printed(L"%.0f", value);
    case 2: return Printed(L"%.1f", value);
    case 3: return Printed(L"%.2f", value);
    case 4: return Printed(L"%.3f", value);
    default: return Printed(L"%f", value);
    }
}

}  // namespace

namespace {

struct SizeKey {
    const wchar_t* key;
    int FolderSizeSettings::*field;
};

constexpr SizeKey kSizeKeys[] = {
    {L"mode", &FolderSizeSettings::mode},           {L"fld_size", &FolderSizeSettings::fld_size},
    {L"type", &FolderSizeSettings::type},           {L"ths_sep", &FolderSizeSettings::ths_sep},
    {L"dig", &FolderSizeSettings::dig},             {L"precent", &FolderSizeSettings::precent},
    {L"ff_cnt", &FolderSizeSettings::ff_cnt},       {L"block_no_focus", &FolderSizeSettings::block_no_focus},
    {L"nosort_fld_size", &FolderSizeSettings::nosort_fld_size},
};

}  // namespace

FolderSizeSettings ReadFolderSizeSettings(ISettingsStore& settings) {
    FolderSizeSettings s;
    for (const SizeKey& key : kSizeKeys) s.*key.field = settings.GetInt(L"X-Size", key.key, s.*key.field);
    return s;
}

int* FolderSizeField(FolderSizeSettings& settings, std::wstring_view key) {
    for (const SizeKey& entry : kSizeKeys)
        if (key == entry.key) return &(settings.*entry.field);
    return nullptr;
}

std::wstring GroupThousands(std::wstring_view number, std::wstring_view separator) {
    size_t digits = 0;
    while (digits < number.size() && number[digits] >= L'0' && number[digits] <= L'9') ++digits;
    if (separator.empty() || digits <= 3) return std::wstring(number);
    std::wstring grouped;
    for (size_t i = 0; i < digits; ++i) {
        if (i > 0 && (digits - i) % 3 == 0) grouped += separator;
        grouped += number[i];
    }
    grouped += number.substr(digits);
    return grouped;
}

std::wstring FormatColumnSize(uint64_t bytes, const FolderSizeSettings& settings, std::wstring_view separator) {
    std::wstring number, unit;
    switch (settings.type) {
    case 0:
        if (bytes >= 1000) {
            number = DigFormatted(static_cast<double>(bytes) / 1024, settings.dig);
            unit = L" KB";
        } else {
            number = std::to_wstring(bytes);
            if (bytes > 0) unit = L" byte";
        }
        break;
    case 2:
        number = DigFormatted(static_cast<double>(bytes) / 1024, settings.dig);
        unit = L" KB";
        break;
    case 3:
        number = DigFormatted(static_cast<double>(bytes) / 1024 / 1024, settings.dig);
        unit = L" MB";
        break;
    default:  // 1 and anything unknown: plain bytes
        number = std::to_wstring(bytes);
        break;
    }
    return GroupThousands(number, settings.ths_sep == 1 ? separator : std::wstring_view()) + unit;
}

double SizeShare(uint64_t bytes, uint64_t largest) {
    return largest == 0 ? 0.0 : static_cast<double>(bytes) / static_cast<double>(largest);
}

std::wstring FormatSize(uint64_t bytes) {
    if (bytes < 1000) return std::to_wstring(bytes) + L" Byte";
    uint64_t k;
    double value;
    const wchar_t* unit;
    if (bytes < 1000000) {
        k = bytes / 10;
        value = static_cast<double>(k) / 102.4;
        unit = L" KB";
    } else if (bytes < 1000000000) {
        k = bytes / 10000;
        value = static_cast<double>(k) / 104.8576;
        unit = L" MB";
    } else {
        k = bytes / 10000000;
        value = static_cast<double>(k) / 107.3741824;
        unit = L" GB";
    }
    return Printed(k < 1000 ? L"%.2f" : k < 10000 ? L"%.1f" : L"%.0f", value) + unit;
}

}  // namespace tessel
