// A program outside the tree that uses an installed library.
#include <mivora/mivora.h>

#include <cstdio>

int main(int argc, char** argv)
{
    CFormulaOut formula;
    formula.FormTree("a/b");
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    std::printf("%d %d\n", rect.Width(), rect.Height());
    return argc > 1 && formula.WriteFormulaToWMF(argv[1]) ? 0 : 1;
}
