// Tells the size of a formula in screen pixels, and writes it as a metafile and as a stored
// formula.
//
//     formula_size 'a/b' fraction.wmf fraction.fml
#include <mivora/mivora.h>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc != 4)
    {
        std::fprintf(stderr, "usage: formula_size FORMULA FILE.wmf FILE.fml\n");
        return 2;
    }
    CFormulaOut formula;
    if (!formula.FormTree(argv[1]))
        return 1;
    formula.SaveToFML(argv[3]);  // as it was formed: a measuring leaves its numbers in the nodes
    CClientDC screen(nullptr);
    const CRect rect = formula.GetFormulaRect(&screen);
    std::printf("%d x %d pixels\n", rect.Width(), rect.Height());
    return formula.WriteFormulaToWMF(argv[2]) ? 0 : 1;
}
