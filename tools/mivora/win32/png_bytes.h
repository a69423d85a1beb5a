// Pixels as a .png, by the system's imaging component.
#pragma once

#include <string>

#include "platform/base/geometry.h"

// The rows (blue, green, red, anything) go from the top down without gaps. Throws CFailure; strPath
// is for its text only.
std::string PngBytes(const unsigned char* pPixels, const CSize& size, const std::string& strPath);
