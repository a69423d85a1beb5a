// Numbers of the dialog, for its resource file too.
#pragma once

#define IDD_FORMULA 100
#define IDC_FORMULA 101
