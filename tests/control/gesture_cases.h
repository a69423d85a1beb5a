// Gestures and what they lead to. Places are named as the driver takes them.
#pragma once

#include <iosfwd>
#include <span>

#include "control/control_driver.h"

struct CGestureCase
{
    const char* pszName;
    const char* pszText;  // null: a tree without a root
    const char* pszScript;
    EField nField;  // of the last state
    const char* pszExpected;
};

// Tells the name in a report.
void PrintTo(const CGestureCase& one, std::ostream* pStream);

std::span<const CGestureCase> MouseCases();
std::span<const CGestureCase> KeyCases();
std::span<const CGestureCase> EditorCases();
std::span<const CGestureCase> TransferCases();
// With placeholders that have an area.
std::span<const CGestureCase> DropCases();
