// Colours as they are written on a page.
#pragma once

#include <optional>
#include <string>

#include "platform/base/types.h"

// One of the sixteen names of old, #rgb or #rrggbb; letters in any case.
std::optional<COLORREF> FindColour(const std::string& strName);
