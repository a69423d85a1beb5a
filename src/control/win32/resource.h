// Numbers of the control's resources.
#pragma once

#define IDR_FORMULA_TOOLBAR 1004
#define IDR_FORMULA_MENU 1005
#define ID_FORMULA_SAVE 32769  // posted to the control, which has no handler for it
