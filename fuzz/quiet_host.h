// A host for fuzzers: message boxes are taken and dropped, as are the forms of a tree.
#pragma once

#include "exchange/latex.h"
#include "exchange/mathml.h"
#include "exchange/speech.h"
#include "platform/base/app.h"

inline void BeQuiet()
{
    AfxSetMessageBoxHandler([](const char*, unsigned, void*) { return 1; }, nullptr);
}

inline void WriteForms(const CNode* pRoot)
{
    MathMLText(pRoot);
    LatexText(pRoot);
    SpokenText(pRoot);
}
