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

#define ID_FILE_NEW_INSTANCE 32781
#define ID_FILE_OPEN_SET 32782
#define ID_FILE_SAVE_SET 32783
#define ID_VIEW_REFRESH_ALL 32861
#define ID_OPTIONS_CLOSE_ASK 32880
#define ID_LANGUAGE_GERMAN 32890
#define ID_LANGUAGE_ENGLISH 32891
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
#define IDS_FOLDER_SETS_LATER 62020
#define IDS_VIEW_NOTHING 62021
#define IDS_VIEW_NUMBER 62022
#define IDS_HELP_FAILED 62023
#define IDS_ASK_CLOSE 62024
