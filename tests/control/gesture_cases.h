// Gestures and what they lead to. Places are named as the driver takes them.
#pragma once

#include <span>

#include "control/control_driver.h"

struct CGestureCase
{
    const char* pszName;
    const char* pszText;  // null: a tree without a root
    const char* pszScript;
    CFieldText aExpected[5];  // of the last state; ends with a null
};

std::span<const CGestureCase> GestureCases();
// With placeholders that have an area.
std::span<const CGestureCase> DropCases();
