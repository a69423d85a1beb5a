// What the bytes of a formula's fonts are as characters.
#pragma once

#include <string>

#include "picture/drawing.h"

// In UTF-8; a space where a code has no sign.
std::string CharacterOf(const CDrawnFont& font, BYTE nCode);
