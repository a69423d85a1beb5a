// What a process does when it makes a copy of itself.
#pragma once

// From now on pfnBefore is called in front of each copy, pfnParent behind it in the process itself,
// pfnChild in the copy, which has the thread that asked for it and no other one. Nothing happens on
// systems whose processes do not copy themselves.
void CallAroundForks(void (*pfnBefore)(), void (*pfnParent)(), void (*pfnChild)());
