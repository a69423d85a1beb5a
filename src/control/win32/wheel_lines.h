// The user's setting for the mouse wheel.
#pragma once

// Lines a notch, 0xFFFFFFFF for a page; 3 where the setting cannot be read.
unsigned ReadWheelScrollLines();
