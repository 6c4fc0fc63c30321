// Resource and command identifiers. Menu and dialog captions are decimal string ids that are
// replaced by the language's text when the menu or dialog is shown.
#pragma once

#define IDI_TESSEL 128
#define IDI_TRAY 130
#define IDR_MAINFRAME 128
#define IDR_ACCELERATORS 129
#define IDD_ABOUT 100
#define IDC_ABOUT_TEXT 1001
#define IDC_ABOUT_VERSION 1002

// Language packs: resources of type "IMG" named code + "-STRING".
#define LANGUAGE_PACK_TYPE "IMG"

// Layout commands 32761..32772 (layout = command - 32761).
#define ID_LAYOUT_FIRST 32761
#define ID_LAYOUT_LAST 32772

// Ctrl+1 to Ctrl+4 put the keyboard focus into T-View 1 to 4.
#define ID_FOCUS_VIEW_1 32791
#define ID_FOCUS_VIEW_4 32794
#define IDC_LAYOUT_TOOLBAR 59392
// The frame-wide folder tree: tree_mode 0, 1, 2.
#define ID_TREE_MODE_0 32885
#define ID_TREE_MODE_2 32887
#define IDC_FRAME_TREE 4566
#define IDC_FRAME_ADDRESS_BAR 4565
// Tabs of the T-View in use: Ctrl+T, Ctrl+W, Ctrl+Tab, Ctrl+Shift+Tab.
#define ID_TAB_NEW 32795
#define ID_TAB_CLOSE 32796
#define ID_TAB_NEXT 32797
#define ID_TAB_PREVIOUS 32798

#define ID_FILE_NEW_INSTANCE 32781
#define ID_FILE_OPEN_SET 32782
#define ID_FILE_SAVE_SET 32783
#define ID_VIEW_REFRESH_ALL 32861
#define ID_OPTIONS_CLOSE_ASK 32880
#define ID_LANGUAGE_GERMAN 32890
#define ID_LANGUAGE_ENGLISH 32891
#define ID_LANGUAGE_FILE_FIRST 32940  // + the language number, for languages from a file beside the program
#define ID_LANGUAGE_FILE_LAST 32958
#define ID_START_MODE_FIRST 32960  // start mode = id - 32960, up to 32971
#define ID_START_MODE_LAST 32971
#define ID_START_MODE_LAST_STATE 32965
#define ID_FILE_EXPORT_LIST 32784
#define ID_COLOUR_SCHEME_FIRST 34053  // scheme = id - 34053, up to 34063
#define ID_COLOUR_SCHEME_LAST 34063
#define ID_COLOUR_NONE 34072
// Address bar options: the tree drop-down and select-all switches, where the bars are
// (34011 one in the frame, 34012 one per T-View, 34013 none), their style and highlighting, and
// the two placeholder commands.
#define ID_ADDRESS_TREE 32809
#define ID_ADDRESS_AUTOSEL 32810
#define ID_ADDRESS_MODE_FRAME 34011
#define ID_ADDRESS_MODE_VIEWS 34012
#define ID_ADDRESS_MODE_NONE 34013
#define ID_ADDRESS_STYLE_CLASSIC 34014
#define ID_ADDRESS_STYLE_SEGMENTS 34015
#define ID_ADDRESS_HIGHLIGHT 34016
#define ID_ADDRESS_PLACEHOLDER_1 34018
#define ID_ADDRESS_PLACEHOLDER_2 34019
#define IDS_MENU_ADDRESS_BAR 62050
#define ID_APP_ABOUT 57664
#define ID_APP_EXIT 57665
#define ID_HELP_TOPICS 57670
#define ID_VIEW_STATUS_BAR 59393

// Texts of the program's own.
#define IDS_MENU_FILE 62001
#define IDS_MENU_VIEW 62002
#define IDS_MENU_LAYOUT 62003
#define IDS_MENU_OPTIONS 62004
#define IDS_MENU_HELP 62005
#define IDS_MENU_LANGUAGE 62006
#define IDS_ABOUT_TITLE 62010
#define IDS_ABOUT_TEXT 62011
#define IDS_OK 62012
#define IDS_VIEW_NUMBER 62022
#define IDS_HELP_FAILED 62023
#define IDS_ASK_CLOSE 62024
#define IDS_FOLDER_SET_UNREADABLE 62025
#define IDS_FOLDER_SET_UNWRITABLE 62026
#define IDS_EXPORT_FAILED 62027
#define IDS_OPTIONS_TITLE 62060
#define IDS_PAGE_COLOURS 62061
#define IDS_COLOUR_PATTERN 62062
#define IDS_COLOUR_COLOUR 62063
#define IDS_COLOUR_ITALIC 62064
#define IDS_COLOUR_BOLD 62065
#define IDS_COLOUR_UNDERLINE 62066
#define IDS_COLOUR_STRIKEOUT 62067
#define IDS_COLOUR_NONE 62068
#define IDS_TAB_WIDTH 62043
#define IDS_TAB_WIDTH_UNCUT 62044
#define IDS_SAVE_WITH_LAYOUT 62040
#define IDS_SAVE_WITH_COLUMNS 62041
#define IDS_SAVE_WITH_PLACEMENT 62042

// The save dialog's own part: three choices of what goes into the folder set.
#define IDD_SAVE_SET_OPTIONS 101
#define IDD_OPTIONS 102
#define IDD_PAGE_COLOURS 103
#define IDD_FAVORITE_ADD 104
#define IDD_INPUT_NAME 105
#define IDD_SEARCH_FAVORITE 106
#define IDD_PAGE_LISTS 107
#define IDD_TRANSLATION 109
#define IDD_PRINT_PREVIEW 110
#define IDC_PP_PREVIOUS 1320
#define IDC_PP_NEXT 1321
#define IDC_PP_PAGE 1322
#define IDC_PP_LANDSCAPE 1323
#define IDC_PP_SETUP 1324
#define IDC_PP_PRINT 1325
#define IDC_PP_AREA 1326
#define ID_FILE_PRINT_PREVIEW 32934  // the shown list on paper
#define IDC_TR_LANGUAGE 1300
#define IDC_TR_SEARCH 1301
#define IDC_TR_MISSING 1302
#define IDC_TR_LIST 1303
#define IDC_TR_TEXT 1304
#define IDC_TR_SET 1305
#define IDC_TR_STATUS 1306
#define IDC_TR_SAVE 1307
#define ID_TRANSLATION_EDITOR 32931  // the translation editor
#define ID_CUSTOMISE_VIEW_TOOLBAR 32932
#define ID_CUSTOMISE_LAYOUT_TOOLBAR 32933
#define IDD_PAGE_SWITCHES 108  // its controls are made from the page's table
#define IDS_PAGE_LISTS 62100
#define IDC_LISTS_WHICH 1130
#define IDC_LISTS_DISABLE 1131
#define IDC_LISTS_ENTRIES 1132
#define IDC_LISTS_NAME 1133
#define IDC_LISTS_TARGET 1134
#define IDC_LISTS_ADD 1135
#define IDC_LISTS_CHANGE 1136
#define IDC_LISTS_REMOVE 1137
#define IDC_LISTS_UP 1138
#define IDC_LISTS_DOWN 1139
#define IDC_LISTS_EXPORT 1140
#define IDC_LISTS_IMPORT 1141
#define IDC_FAV_NAME 1120
#define IDC_FAV_VIEWS 1121
#define IDC_FAV_COLUMNS 1122
#define IDC_FAV_PLACEMENT 1123
#define IDC_INPUT_PROMPT 1124
#define IDC_INPUT_TEXT 1125
#define IDC_SEARCH_FOLDER 1126
#define IDC_SEARCH_FILTER 1127
#define IDC_SEARCH_NAME 1128
#define ID_FAV_ADD 32919
#define ID_FAV_ORGANISE 32779
#define ID_FAV_NEW_WINDOW_HINT 32785
#define ID_FAV_OPEN_IN_VIEW 32920
#define ID_FAV_CHOOSE_FOLDER 32921
#define ID_FAV_ADD_SEARCH 32922
#define ID_FAV_FIRST_ENTRY 47000
#define ID_FAV_LAST_ENTRY 48999
#define IDC_OPTIONS_PAGES 1110
#define IDC_OPTIONS_AREA 1111
#define IDC_COLOUR_LIST 1112

// The colour page's commands.
#define ID_COLOUR_NEW 57600
#define ID_COLOUR_DELETE 32824
#define ID_COLOUR_UP 32821
#define ID_COLOUR_DOWN 32822
#define ID_COLOUR_EXPORT 32816
#define ID_COLOUR_IMPORT 42812
#define ID_COLOUR_SCHEMES 1015
#define ID_COLOUR_PRIORITIES 1016
#define ID_COLOUR_HELP 57670
#define ID_COLOUR_RECOMMEND 32819
#define ID_COLOURS_CHANGED 32799  // to the main frame: the rules changed, show them
#define ID_OPTIONS_DIALOG 32881
#define IDC_SAVE_LAYOUT 1101
#define IDC_SAVE_COLUMNS 1102
#define IDC_SAVE_PLACEMENT 1103

// Browser view commands.
#define ID_VIEW_FOLDER_SIZES 32844
#define ID_VIEW_MAGNIFIER 32930  // the screen magnifier, on and off
#define ID_VIEW_PREVIEW 32879  // the preview pane, on and off
#define IDC_FRAME_PREVIEW 4567
#define ID_VIEW_FILTER_TOGGLE 32862
#define ID_VIEW_FOCUS_LIST 32863
#define ID_VIEW_BACK 42860
#define ID_VIEW_FORWARD 42861
#define ID_VIEW_UP 42865
#define ID_VIEW_NEW_FOLDER 42870
#define ID_VIEW_COPY 42871
#define ID_VIEW_CUT 42872
#define ID_VIEW_PASTE 42873
#define ID_VIEW_DELETE 42874
#define ID_VIEW_RENAME 42875
#define ID_VIEW_PROPERTIES 42876
#define ID_VIEW_REFRESH 42877
#define ID_VIEW_MODES 42879
#define ID_VIEW_MODE_ICONS 42880
#define ID_VIEW_MODE_SMALL_ICONS 42881
#define ID_VIEW_MODE_LIST 42882
#define ID_VIEW_MODE_DETAILS 42883
#define ID_VIEW_MODE_THUMBNAILS 42884
#define ID_QUICK_LINKS_MENU 42890
#define ID_PROGRAMS_MENU 42891
#define ID_BACKGROUND_TITLE 111111

// The transfer menu: its header (also the toolbar button), the three choices kept in section
// "Transfer", and one item per T-View (32833 + the T-View's index from 0). Copy-to and move-to
// list the same T-Views.
#define ID_TRANSFER 45054
#define ID_TRANSFER_VIEW_SET 45055
#define ID_TRANSFER_HISTORY 45056
#define ID_TRANSFER_SELECTION 45057
#define ID_TRANSFER_VIEW_FIRST 32833
#define ID_COPY_TO_VIEW 57634
#define ID_MOVE_TO_VIEW 57635

// The toolbars of a T-View, carried by its status bar, and the click of a navigation.
#define IDR_TOOLBAR_VIEW 241
#define IDR_TOOLBAR_EXTRA 244
#define IDR_TOOLBAR_MODES 280
#define IDR_CLICK_SOUND 275

#define IDS_STATUS_ITEMS 62030
#define IDS_STATUS_SELECTED 62031
#define IDS_STATUS_FOLDERS 62032
#define IDS_STATUS_FILES 62033
#define IDS_NEW_FOLDER_NAME 62034
#define IDS_FILTER_LABEL 62035

// Questions and refusals that keep a user's files and lists safe.
#define IDS_MOVE_CLASH 62400
#define IDS_IMPORT_UNREADABLE 62401
#define IDS_IMPORT_TOO_LARGE 62402
#define IDS_IMPORT_EMPTY 62403
#define IDS_PATTERN_NOT_STORABLE 62404
#define IDS_ENTRY_NOT_STORABLE 62405
#define IDS_RULES_FULL 62406
#define IDS_FILE_EXISTS_REPLACE 62407
#define IDS_DROP_COPY_HERE 62408
#define IDS_DROP_MOVE_HERE 62409
#define IDS_FOLDER_GONE 62410
#define IDS_LOCATION_NOT_OPENED 62411
#define IDS_READING_FOLDER 62412
