// Ctrl+C: no half of a file stays, and a batch tells how far it came.
#pragma once

// From now on the program ends at once when it is interrupted, but never while a file is being
// replaced: that is finished first.
void EndWhenInterrupted();

// From now on the first interruption is only noted, and ends a wait for input. A second one ends
// the program.
void NoteInterruption();

// For a process that another one waits for: that one decides.
void IgnoreInterruption();

bool IsInterrupted();

// The exit status for it.
int InterruptedStatus();
