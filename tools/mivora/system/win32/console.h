// The console that the program was started from.
#pragma once

// Gives it back the code page that it had. For every way on which the program ends.
void RestoreConsole();
