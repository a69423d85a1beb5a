// Numbers of the editor's resources, child windows and commands. Macros: the resource file uses
// them too.
#pragma once

#define IDR_MAIN_FRAME 128
#define IDR_ICONS 129

#define IDC_TEXT_LINE 1001
#define IDC_RULE 1002
#define IDC_FORMULA 1003

// Parts of the status line; as commands, they are asked for their texts.
#define ID_PANE_MESSAGE 1010
#define ID_PANE_NODE 1011
#define ID_PANE_CHANGES 1012
#define ID_PANE_READ_ONLY 1013

#define ID_FILE_EXPORT 32800
#define ID_EDIT_READ_ONLY 32801
#define ID_HELP_KEYS 32802
// The first of twelve; the number of a style is added.
#define ID_VIEW_MENU_STYLE 32810
