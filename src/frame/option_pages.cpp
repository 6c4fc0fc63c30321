#include "frame/option_pages.h"

#include <algorithm>

namespace tessel {
namespace {

constexpr OptionKind kCheck = OptionKind::kCheck, kChoice = OptionKind::kChoice, kNumber = OptionKind::kNumber;

// Check boxes: any non-zero value counts as on, so the fallback is never used.
constexpr OptionItem Check(const wchar_t* key, int label, unsigned effect = kEffectNone,
                           const wchar_t* section = L"Start") {
    return {section, key, label, kCheck, 0, {}, 0, 1, effect};
}

constexpr OptionItem Choice(const wchar_t* key, int label, std::span<const OptionChoice> choices, int fallback,
                            unsigned effect = kEffectNone, const wchar_t* section = L"Start") {
    return {section, key, label, kChoice, fallback, choices, 0, 1, effect};
}

// The languages with a pack in the program; the names are the languages' own.
constexpr OptionChoice kLanguages[] = {{0, 62224}, {1, 62225}};
// Every start mode but 5 starts the same way, with the drives in every T-View.
constexpr OptionChoice kStartModes[] = {{5, 32965}, {0, 32960}};
constexpr OptionChoice kDesigns[] = {{0, 62214}, {1, 62215}, {2, 62216}};
constexpr OptionChoice kClipboardModes[] = {{0, 62220}, {1, 62221}};
constexpr OptionChoice kTabStrips[] = {{0, 62251}, {1, 62252}, {2, 62253}};
constexpr OptionChoice kLabelWidths[] = {{1, 62257}, {0, 62256}};
// The hover delays in the order of their length; their stored numbers are not.
constexpr OptionChoice kHoverDelays[] = {{5, 62260}, {0, 62261}, {1, 62262}, {2, 62263}, {3, 62264}, {4, 62265}};
constexpr OptionChoice kTreeModes[] = {{0, 32885}, {1, 32886}, {2, 32887}};
constexpr OptionChoice kTreeColours[] = {{0, 62279}, {2, 62281}, {1, 62280}};
constexpr OptionChoice kAddressModes[] = {{0, 34012}, {1, 34011}, {-1, 34013}};
constexpr OptionChoice kAddressStyles[] = {{0, 34014}, {1, 34015}};
constexpr OptionChoice kSelectionStatus[] = {{0, 62293}, {1, 62294}, {2, 62295}};
constexpr OptionChoice kNoSelectionStatus[] = {{0, 62293}, {1, 62294}, {2, 62298}};
constexpr OptionChoice kSizeUnits[] = {{0, 62301}, {1, 62302}, {2, 62303}, {3, 62304}};
constexpr OptionChoice kSizeDecimals[] = {{1, 62306}, {2, 62307}, {3, 62308}, {4, 62309}, {0, 62310}};

constexpr OptionItem kGeneral[] = {
    Choice(L"m_lang_id", 62210, kLanguages, 1, kEffectLanguage),
    Choice(L"Als", 62211, kStartModes, 0),
    Choice(L"designe_mode", 62213, kDesigns, 0, kEffectDesign),
    Choice(L"copy_cut_paste_mode", 62219, kClipboardModes, 1),
    Check(L"close_ask", 32880),
    Check(L"title_info", 62212, kEffectTitle),
    Check(L"StatusBar", 59393, kEffectStatusBar),
    Check(L"tray_icon", 62341),
    Check(L"audio_click", 62217),
    Check(L"mousewheel_focus", 62218),
    Check(L"i-net", 62222),
    Check(L"enable_priv", 62223),
};

constexpr OptionItem kFileViews[] = {
    Check(L"fullrow_sel", 62230, kEffectViews),
    Check(L"show_linie", 62231, kEffectViews),
    Check(L"disable_column_hl", 62232, kEffectViews),
    Check(L"header_in_all_views", 62233, kEffectViews),
    Check(L"no_keep_grouping", 62234),
    Check(L"noenumrefresh", 62235),
    Check(L"disable_up_down_edit", 62236),
    Check(L"lmouse_dblclk", 62237),
    Check(L"only_label_or_icon_clk", 62238),
    Check(L"useColor", 62244, kEffectColours),
    Check(L"spalten_speichern", 62239),
    Check(L"AnsichtSav", 62240),
    Check(L"merke_ansicht", 62241),
    Check(L"merke_markierte", 62242),
    Check(L"select_last_if_navigate_up", 62243),
};

constexpr OptionItem kTabs[] = {
    Choice(L"show_tabs", 62250, kTabStrips, 1, kEffectTabs),
    Choice(L"tab_width_mode", 62255, kLabelWidths, 0, kEffectTabs),
    {L"Start", L"tab_max_width", 62258, kNumber, 120, {}, 60, 300, kEffectTabs},
    Choice(L"tabs_hover_time", 62259, kHoverDelays, 0),
    Check(L"tab_use_context_menu", 62254),
};

constexpr OptionItem kTree[] = {
    Choice(L"tree_mode", 62270, kTreeModes, 0, kEffectTreeMode),
    Choice(L"useTreeColor", 62278, kTreeColours, 2, kEffectColours),
    Choice(L"tree_hover_time", 62282, kHoverDelays, 0),
    Check(L"tree_auto_sel", 62271, kEffectTree),
    Check(L"tree_single_expand", 62272, kEffectTree),
    Check(L"tree_fullrowselect", 62273, kEffectTree),
    Check(L"tree_disable_line", 62274, kEffectTree),
    Check(L"tree_all_browsable", 62275, kEffectTree),
    Check(L"tree_auto_chk_subdir", 62276, kEffectTree),
    Check(L"tree_expand_when_select", 62277, kEffectTree),
};

constexpr OptionItem kBars[] = {
    Choice(L"address_bar_mod", 62290, kAddressModes, 0, kEffectAddress),
    Choice(L"adresbar_style", 62291, kAddressStyles, 0, kEffectAddress),
    Choice(L"status_selection_type", 62292, kSelectionStatus, 0, kEffectViews),
    Choice(L"status_no_selection_type", 62296, kNoSelectionStatus, 0, kEffectViews),
    Check(L"adresbar_use_highlighted", 34016, kEffectAddress),
    Check(L"adress_tree", 32809),
    Check(L"adress_autosel", 32810),
    Check(L"status_use_highlighted", 62297, kEffectAddress),
};

constexpr OptionItem kFolderSizes[] = {
    Choice(L"type", 62300, kSizeUnits, 1, kEffectViews, L"X-Size"),
    Choice(L"dig", 62305, kSizeDecimals, 0, kEffectViews, L"X-Size"),
    Check(L"fld_size", 32844, kEffectViews, L"X-Size"),
    Check(L"ths_sep", 62311, kEffectViews, L"X-Size"),
    Check(L"precent", 62312, kEffectViews, L"X-Size"),
    Check(L"ff_cnt", 62313, kEffectViews, L"X-Size"),
    Check(L"block_no_focus", 62314, kEffectViews, L"X-Size"),
    Check(L"nosort_fld_size", 62315, kEffectViews, L"X-Size"),
};

constexpr OptionChoice kPreviewSources[] = {{0, 62333}, {1, 62334}};

constexpr OptionItem kPreview[] = {
    Choice(L"media_preview_by", 62332, kPreviewSources, 0, kEffectPreview),
};

constexpr OptionPageTable kPages[] = {
    {62200, kGeneral}, {62201, kFileViews}, {62202, kTabs},    {62203, kTree},
    {62204, kBars},    {62205, kFolderSizes}, {62331, kPreview},
};

}  // namespace

std::span<const OptionPageTable> OptionPageTables() { return kPages; }

int ChoiceIndex(const OptionItem& item, int value) {
    for (size_t i = 0; i < item.choices.size(); ++i)
        if (item.choices[i].value == value) return static_cast<int>(i);
    return -1;
}

int ShownValue(const OptionItem& item, int stored) {
    switch (item.kind) {
    case OptionKind::kCheck: return stored != 0 ? 1 : 0;
    case OptionKind::kChoice: return ChoiceIndex(item, stored) >= 0 ? stored : item.fallback;
    case OptionKind::kNumber: return std::clamp(stored, item.minimum, item.maximum);
    }
    return stored;
}

std::wstring PlainMenuText(std::wstring_view text) {
    text = text.substr(0, text.find(L'\t'));
    std::wstring plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'&' && i + 1 < text.size()) ++i;  // "&&" keeps one "&"
        plain += text[i];
    }
    return plain;
}

}  // namespace tessel
