#include "features/colour_rules.h"

#include <algorithm>
#include <cwchar>

#include "core/settings_store.h"

namespace tessel {
namespace {

constexpr std::wstring_view kSection = L"Filter2";
constexpr std::wstring_view kOlderSection = L"Filter";

struct SchemeRow {
    const wchar_t* pattern;
    int colours[kSchemeCount];  // RRGGBB as written, -1 for none
};

// The same twelve patterns in every scheme; the "," in the pictures row is a separator too.
constexpr SchemeRow kSchemes[] = {
    {L"#Hidden", {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1}},
    {L"*.zip;*.rar;*.gz;*.7z;",
     {0x00AA00, 0x00AA00, 0x444444, 0x333333, 0xE6E4E9, 0x00AA00, 0xFFCCFF, 0xFFDDFF, 0xFF8844, 0xA00000, 0x00C100}},
    {L"*.mp*;*.avi;*.wma;",
     {0xDD0058, 0xDD0058, 0xFFEE88, 0xDD0058, 0x408080, 0xAAFF77, 0x000000, 0xCC88CC, 0xCC88CC, 0xE6E6E6, 0x904060}},
    {L"#DIR", {0x008800, 0xFFFF00, 0x222222, 0x000000, 0x111111, 0xFF1144, 0xFFFFFF, 0xFFFFFF, 0xFF0000, 0x000000, 0x000000}},
    {L"*.jpg;*.jpeg;*.png,*.gif;*.bmp;*.ico",
     {0xBB00BB, 0xBB44EE, 0xFFEE88, 0x456789, 0x456789, 0x00BBFF, 0xFFFFCC, 0xAADDDD, 0x6666FF, 0xFFFFFF, 0x4444AA}},
    {L"*.html;*.htm;*.url",
     {0x456789, 0x81A0C0, 0xFFFFFF, 0x456789, 0x456789, 0x456789, 0x456789, 0xCCFFCC, 0x444444, 0x444444, 0xCCAA88}},
    {L"*.pl;*.cgi;*.php;*.pdf;*.doc;*.rtf;*.xls",
     {0xBB8844, 0xBBEE44, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xBB44EE, 0xFFDEFF, 0xFFFFDE, 0x888888, 0xFFFFAA, 0xAA0000}},
    {L"*.cpp;*.hpp;*.h",
     {0xDD0058, 0xDD8858, 0xFFFFFF, 0x8858DD, 0x8858DD, 0xDD8858, 0xFFFFFF, 0x454545, 0x454545, 0xFFFF00, 0x0000FF}},
    {L"*.exe;*.dll;*.bat",
     {0xFF0000, 0xFF8800, 0xFFFF00, 0x0044AA, 0x0044AA, 0xFF0088, 0xCCFFFF, 0xFFFFC0, 0xFF2288, 0xAAFF55, 0xAA00AA}},
    {L"*", {0x0000BB, 0x44BBEE, 0xFFFFFF, 0x804040, 0x804040, 0xFFFF44, 0xDDDDDD, 0xFFFF84, 0x111111, 0xAAFF88, 0x111111}},
    {L"#BG", {-1, 0x111111, 0xFF9B59, 0xFAD689, 0xA8B680, 0x000080, 0xFF88FF, 0x999999, 0xEEEE66, 0xDD0000, 0xCCFF44}},
    {L"#BG-A", {-1, 0x333333, 0xFF8A15, 0xF0C55E, 0xC0C59C, 0x000060, 0xFF00FF, 0x777777, 0xFFFF00, 0xFF0000, 0xBBFF44}},
};

int ColourFromRgb(int rgb) {
    if (rgb < 0) return kNoColour;
    return ((rgb >> 16) & 0xFF) | (rgb & 0xFF00) | ((rgb & 0xFF) << 16);
}

int HexDigit(wchar_t c) {
    if (c >= L'0' && c <= L'9') return c - L'0';
    if (c >= L'a' && c <= L'f') return c - L'a' + 10;
    if (c >= L'A' && c <= L'F') return c - L'A' + 10;
    return -1;
}

// Leading blanks, a sign and digits, as the settings' integers are read; anything else is 0.
int FieldInt(std::wstring_view text) { return ParseLeadingInt(text); }

std::wstring_view NextField(std::wstring_view& rest) {
    const size_t end = rest.find(L'=');
    std::wstring_view field = rest.substr(0, end);
    rest = end == std::wstring_view::npos ? std::wstring_view() : rest.substr(end + 1);
    return field;
}

}  // namespace

std::wstring FormatColourText(int colour) {
    if (colour < 0) return L"-1";
    wchar_t text[8];
    std::swprintf(text, 8, L"%02X%02X%02X", colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
    return text;
}

// Hexadecimal digits are read as far as they go, as a C reader of "%x" does; no digit at all
// is not a colour, and grey says so.
std::array<int, kCustomColourCount> ParseCustomColours(std::wstring_view text) {
    std::array<int, kCustomColourCount> colours;
    colours.fill(kNoColour);
    for (int place = 0; place < kCustomColourCount && !text.empty(); ++place) {
        const size_t end = std::min(text.find(L';'), text.size());
        const std::wstring_view field = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        bool hex = field.size() == 6;
        for (wchar_t c : field) hex = hex && HexDigit(c) >= 0;
        if (hex) colours[static_cast<size_t>(place)] = ParseColourText(field);
    }
    return colours;
}

std::wstring FormatCustomColours(const std::array<int, kCustomColourCount>& colours) {
    std::wstring text;
    for (size_t place = 0; place < colours.size(); ++place) {
        if (place) text += L';';
        text += FormatColourText(colours[place]);
    }
    return text;
}

int ParseColourText(std::wstring_view text) {
    if (text.find(L'-') != std::wstring_view::npos) return kNoColour;
    size_t at = 0;
    while (at < text.size() && (text[at] == L' ' || text[at] == L'\t')) ++at;
    if (text.substr(at, 2) == L"0x" || text.substr(at, 2) == L"0X") at += 2;
    uint32_t rgb = 0;
    bool any = false;
    for (; at < text.size() && HexDigit(text[at]) >= 0; ++at) {
        rgb = (rgb << 4) | static_cast<uint32_t>(HexDigit(text[at]));
        any = true;
    }
    if (!any) return 0x808080;
    return ColourFromRgb(static_cast<int>(rgb & 0xFFFFFF));
}

bool ParseRuleLine(std::wstring_view line, ColourRule& rule) {
    std::wstring_view rest = line;
    const std::wstring_view pattern = NextField(rest);
    if (pattern.empty()) return false;
    rule.pattern = pattern;
    rule.enabled = FieldInt(NextField(rest));
    const std::wstring_view colour = NextField(rest);
    rule.colour = colour.empty() ? 0 : ParseColourText(colour);
    rule.italic = FieldInt(NextField(rest));
    rule.bold = FieldInt(NextField(rest));
    rule.underline = FieldInt(NextField(rest));
    rule.strikeout = FieldInt(NextField(rest));
    return true;
}

std::wstring FormatRuleLine(const ColourRule& rule) {
    return rule.pattern + L"=" + std::to_wstring(rule.enabled) + L"=" + FormatColourText(rule.colour) + L"=" +
           std::to_wstring(rule.italic) + L"=" + std::to_wstring(rule.bold) + L"=" +
           std::to_wstring(rule.underline) + L"=" + std::to_wstring(rule.strikeout);
}

int LoadRules(ISettingsStore& settings, RuleTable& table) {
    const std::wstring_view section = settings.GetSection(kSection).empty() ? kOlderSection : kSection;
    RuleTable loaded;
    for (int key = 0; key < kRuleSlots && loaded.count < kRuleSlots; ++key) {
        ColourRule rule;
        if (ParseRuleLine(settings.GetString(section, std::to_wstring(key), L""), rule))
            loaded.slots[loaded.count++] = std::move(rule);
    }
    table = std::move(loaded);
    return table.count;
}

void WriteRules(ISettingsStore& settings, const RuleTable& table, bool everyKey) {
    for (int key = 0; key < kRuleSlots; ++key) {
        const std::wstring name = std::to_wstring(key);
        if (key < table.count)
            settings.PutString(kSection, name, FormatRuleLine(table.slots[key]));
        else if (everyKey || !settings.GetString(kSection, name, L"").empty())
            settings.PutString(kSection, name, L"");
    }
}

void FillScheme(RuleTable& table, int scheme) {
    if (scheme < 0 || scheme >= kSchemeCount) scheme = 0;
    int slot = 0;
    for (const SchemeRow& row : kSchemes) {
        ColourRule& rule = table.slots[slot];
        rule.pattern = row.pattern;
        rule.enabled = 1;
        rule.colour = ColourFromRgb(row.colours[scheme]);
        rule.italic = slot == 0 ? 1 : -1;  // hidden items italic and bold in the list's own colour
        rule.bold = 1;
        rule.underline = -1;
        if (table.count <= slot) rule.strikeout = 0;  // a slot never used before
        ++slot;
    }
    table.count = slot;
}

constexpr size_t kRuleCellCount = 6;  // pattern, colour and the four styles

std::vector<std::wstring> RuleCells(const ColourRule& rule) {
    return {rule.pattern,
            FormatColourText(rule.colour),
            std::to_wstring(rule.italic),
            std::to_wstring(rule.bold),
            std::to_wstring(rule.underline),
            std::to_wstring(rule.strikeout)};
}

ColourRule RuleOfCells(const std::vector<std::wstring>& cells, bool enabled) {
    auto cell = [&](size_t i) { return i < cells.size() ? std::wstring_view(cells[i]) : std::wstring_view(L"-1"); };
    ColourRule rule;
    rule.pattern = cell(0);
    rule.enabled = enabled ? 1 : 0;
    rule.colour = ParseColourText(cell(1));
    rule.italic = FieldInt(cell(2));
    rule.bold = FieldInt(cell(3));
    rule.underline = FieldInt(cell(4));
    rule.strikeout = FieldInt(cell(5));
    return rule;
}

std::wstring_view RuleMatchName(std::wstring_view inFolder, std::wstring_view fullPath) {
    std::wstring_view name = inFolder.empty() ? fullPath : inFolder;
    if (const size_t slash = name.rfind(L'\\'); slash != std::wstring_view::npos) name.remove_prefix(slash + 1);
    return name;
}

bool RulePatternStorable(std::wstring_view pattern) {
    if (pattern.empty() || pattern.find_first_of(L"=\r\n") != std::wstring_view::npos) return false;
    ColourRule widest{std::wstring(pattern)};
    widest.colour = 0;
    return FormatRuleLine(widest).size() < kSettingsValueLimit;
}

std::vector<std::wstring> RuleTabRow(const ColourRule& rule) {
    std::vector<std::wstring> row = RuleCells(rule);
    row.push_back(rule.enabled ? L"1" : L"0");
    return row;
}

ColourRule RuleOfTabRow(const std::vector<std::wstring>& row) {
    return RuleOfCells(row, row.size() <= kRuleCellCount || row[kRuleCellCount] != L"0");
}

int NextStyleValue(int value) { return value == -1 ? 1 : value == 0 ? -1 : 0; }

std::wstring FormatRulesFile(const std::vector<ColourRule>& rules) {
    std::wstring text(kRulesFileHeader);
    text += L"\r\n";
    for (const ColourRule& rule : rules) text += FormatRuleLine(rule) + L"\r\n";
    return text;
}

bool HasRulesFileHeader(std::wstring_view text) {
    if (!text.empty() && text.front() == L'\xFEFF') text.remove_prefix(1);
    return text.starts_with(kRulesFileHeader) || text.starts_with(kRulesFileHeaderEnglish);
}

std::vector<ColourRule> ParseRulesFile(std::wstring_view text) {
    std::vector<ColourRule> rules;
    while (!text.empty() && rules.size() < kRuleSlots) {
        size_t end = text.find_first_of(L"\r\n");
        std::wstring_view line = text.substr(0, end);
        text = end == std::wstring_view::npos ? std::wstring_view() : text.substr(end + 1);
        if (!line.empty() && line.front() == L'\xFEFF') line.remove_prefix(1);
        ColourRule rule;
        const bool binary = std::any_of(line.begin(), line.end(), [](wchar_t c) { return c < 0x20; });
        if (!binary && !line.starts_with(L";") && ParseRuleLine(line, rule)) rules.push_back(std::move(rule));
    }
    return rules;
}

}  // namespace tessel
