// What help, manual and completions say differently on each system.
#pragma once

#include "words/command_table.h"

extern const char g_szDpiHelp[];
extern const char g_szRenderDescription[];

// As they are typed into the system's usual shell.
extern const CExample g_aRenderExamples[3];
extern const CExample g_aBatchExamples[2];
extern const CExample g_aTreeExamples[3];
extern const CExample g_aInspectExamples[2];
extern const CExample g_aEditExamples[2];
