#include "core/general_options.h"

#include <iterator>

namespace tessel {

#define TESSEL_OPTION(name) {L## #name, &GeneralOptions::name}
static const OptionEntry kOptions[] = {
    TESSEL_OPTION(m_lang_id),
    TESSEL_OPTION(tree_auto_sel),
    TESSEL_OPTION(StatusBar),
    {L"i-net", &GeneralOptions::i_net},
    TESSEL_OPTION(show_tabs),
    TESSEL_OPTION(media_preview_by),
    TESSEL_OPTION(AnsichtSav),
    TESSEL_OPTION(useColor),
    TESSEL_OPTION(spalten_speichern),
    TESSEL_OPTION(audio_click),
    TESSEL_OPTION(fullrow_sel),
    TESSEL_OPTION(show_linie),
    TESSEL_OPTION(adress_tree),
    TESSEL_OPTION(copy_cut_paste_mode),
    TESSEL_OPTION(disable_column_hl),
    TESSEL_OPTION(disable_up_down_edit),
    TESSEL_OPTION(tab_use_context_menu),
    TESSEL_OPTION(noenumrefresh),
    TESSEL_OPTION(header_in_all_views),
    TESSEL_OPTION(adress_autosel),
    TESSEL_OPTION(merke_markierte),
    TESSEL_OPTION(merke_ansicht),
    TESSEL_OPTION(title_info),
    TESSEL_OPTION(close_ask),
    TESSEL_OPTION(address_bar_mod),
    TESSEL_OPTION(lmouse_dblclk),
    TESSEL_OPTION(status_selection_type),
    TESSEL_OPTION(status_no_selection_type),
    TESSEL_OPTION(adresbar_use_highlighted),
    TESSEL_OPTION(status_use_highlighted),
    TESSEL_OPTION(adresbar_style),
    TESSEL_OPTION(mousewheel_focus),
    TESSEL_OPTION(select_last_if_navigate_up),
    TESSEL_OPTION(tree_auto_chk_subdir),
    TESSEL_OPTION(tree_disable_line),
    TESSEL_OPTION(only_label_or_icon_clk),
    TESSEL_OPTION(no_keep_grouping),
    TESSEL_OPTION(useTreeColor),
    TESSEL_OPTION(tree_all_browsable),
    TESSEL_OPTION(tree_expand_when_select),
    TESSEL_OPTION(tree_fullrowselect),
    TESSEL_OPTION(tree_single_expand),
    TESSEL_OPTION(Als),
    TESSEL_OPTION(enable_priv),
    TESSEL_OPTION(tab_width_mode),
    TESSEL_OPTION(tab_max_width),
};
#undef TESSEL_OPTION

const OptionEntry* OptionTable(size_t& count) {
    count = std::size(kOptions);
    return kOptions;
}

int* OptionField(GeneralOptions& options, std::wstring_view key) {
    for (const OptionEntry& entry : kOptions)
        if (key == entry.key) return &(options.*entry.field);
    if (key == L"tabs_hover_time") return &options.tabs_hover_time;
    if (key == L"tree_hover_time") return &options.tree_hover_time;
    if (key == L"tray_icon") return &options.tray_icon;
    if (key == L"show_hidden") return &options.show_hidden;
    return nullptr;
}

GeneralOptions& Options() {
    static GeneralOptions options;
    return options;
}

bool ReadOption(std::wstring_view sectionLines, std::wstring_view key, int& variable) {
    std::wstring value;
    if (!FindSectionValue(sectionLines, key, value)) return false;
    variable = ParseLeadingInt(value);
    return true;
}

void LoadGeneralOptions(ISettingsStore& store, GeneralOptions& options) {
    if (!store.IsFileMode()) options.m_lang_id = store.RegGetInt(L"lng", options.m_lang_id);
    const std::wstring lines = store.GetSection(L"Start");
    for (const OptionEntry& entry : kOptions) ReadOption(lines, entry.key, options.*entry.field);
    ReadOption(lines, L"tabs_hover_time", options.tabs_hover_time);
    ReadOption(lines, L"tree_hover_time", options.tree_hover_time);
    ReadOption(lines, L"tray_icon", options.tray_icon);
    ReadOption(lines, L"show_hidden", options.show_hidden);
}

bool WriteOption(ISettingsStore& store, std::wstring_view key, int value) {
    return store.PutInt(L"Start", key, value);
}

}  // namespace tessel
