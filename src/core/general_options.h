#pragma once
// The general options: process-wide integer switches of section "Start", loaded once when the
// main frame is created and written back at once when a command changes one.
#include <string_view>

#include "core/settings_store.h"

namespace tessel {

struct GeneralOptions {
    int m_lang_id = 0;
    int tree_auto_sel = 1;
    int StatusBar = 1;  // status bars shown
    int i_net = 1;
    int show_tabs = 2;
    int media_preview_by = 0;
    int AnsichtSav = 1;  // view state saved with folder sets
    int useColor = 0;
    int spalten_speichern = 1;
    int audio_click = 1;
    int fullrow_sel = 0;
    int show_linie = 0;
    int adress_tree = 1;
    int copy_cut_paste_mode = 0;
    int disable_column_hl = 1;
    int disable_up_down_edit = 0;
    int tab_use_context_menu = 1;
    int noenumrefresh = 0;
    int header_in_all_views = 1;
    int adress_autosel = 1;
    int merke_markierte = 1;
    int merke_ansicht = 1;
    int title_info = 0;
    int close_ask = 0;
    int address_bar_mod = 0;
    int lmouse_dblclk = 0;
    int status_selection_type = 0;
    int status_no_selection_type = 0;
    int adresbar_use_highlighted = 1;
    int status_use_highlighted = 1;
    int adresbar_style = 0;
    int mousewheel_focus = 0;
    int select_last_if_navigate_up = 1;
    int tree_auto_chk_subdir = 1;
    int tree_disable_line = 0;
    int only_label_or_icon_clk = 0;
    int no_keep_grouping = 0;
    int useTreeColor = 2;
    int tree_all_browsable = 1;
    int tree_expand_when_select = 0;
    int tree_fullrowselect = 0;
    int tree_single_expand = 0;
    int Als = 5;  // start mode; 5 reopens the last state
    int enable_priv = 1;
    int tab_width_mode = 1;
    int tab_max_width = 120;  // pixels
    // Read in the same load although the table leaves them out: their defaults are their own.
    int tabs_hover_time = 0;
    int tree_hover_time = 0;
    int tray_icon = 0;  // minimised, the window waits in the notification area
    int show_hidden = 0;  // the lists show hidden files and folders
};

struct OptionEntry {
    const wchar_t* key;
    int GeneralOptions::*field;
};

// Every option in loading order; the defaults are the member initialisers above.
const OptionEntry* OptionTable(size_t& count);

// The option of key `key` in `options`; null for a key that is not in the table.
int* OptionField(GeneralOptions& options, std::wstring_view key);

// The process-wide options that the Parts read directly.
GeneralOptions& Options();

// Reads section "Start" once and fills every option whose key is present. In registry mode the
// language comes from the registry value "lng" first.
void LoadGeneralOptions(ISettingsStore& store, GeneralOptions& options);

// Looks a key up in the section text of the last load; a missing key keeps the variable.
bool ReadOption(std::wstring_view sectionLines, std::wstring_view key, int& variable);

bool WriteOption(ISettingsStore& store, std::wstring_view key, int value);

// Sets an option for the duration of a call, then puts the held value back.
class ScopedOption {
public:
    ScopedOption(int& option, int value) : option_(option), saved_(option) { option_ = value; }
    ~ScopedOption() { option_ = saved_; }
    ScopedOption(const ScopedOption&) = delete;
    ScopedOption& operator=(const ScopedOption&) = delete;

private:
    int& option_;
    int saved_;
};

}  // namespace tessel
