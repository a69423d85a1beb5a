// Tells the size of a formula in screen pixels, and writes it as a metafile.
//
//     formula_size 'a/b' fraction.wmf
#include <mivora/mivora.h>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: formula_size FORMULA FILE.wmf\n");
        return 2;
    }
    CFormulaOut formula;
    if (!formula.FormTree(argv[1]))
        return 1;
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    std::printf("%d x %d pixels\n", rect.Width(), rect.Height());
    return formula.WriteFormulaToWMF(argv[2]) ? 0 : 1;
}
