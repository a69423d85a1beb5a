// How much of a long random test a system runs: a call of the drawing interface costs some hundred
// times more where another process does the drawing.
#pragma once

extern const unsigned TEST_EFFORT;  // per cent
