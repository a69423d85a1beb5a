// What help says about Windows.
#include "words/platform_texts.h"

const char g_szDpiHelp[] =
    "Resolution of a .bmp or .png in dots per inch (default 96); a .svg is enlarged in the same "
    "proportion";
const char g_szRenderDescription[] =
    "Draws the formula into FILE. The extension of FILE chooses the format: .wmf or .emf "
    "(enhanced metafile), .bmp, .png or .svg, or .fml for a stored formula, which holds text, tree "
    "and format; .pdf is made on Linux only. Prints the width and the height, each 22 times the "
    "size in pixels of the screen.\n"
    "A syntax error is a warning: the text is shown with a mark under the place, and the part "
    "before it is drawn.";

const CExample g_aRenderExamples[] = {
    { "mivora render \"sqr(x+1)/2\" -o root.wmf", "an enhanced metafile" },
    { "mivora render \"a/b\" -o half.png --dpi 300", "a picture of 300 dots per inch" },
    { "type formula.txt | mivora render - -o formula.png", "the text from standard input" },
};
const CExample g_aBatchExamples[] = {
    { "mivora batch formulas.txt -d out --format png --jobs 4", "four processes" },
    { "findstr = notes.txt | mivora batch - -d out", "from a pipe" },
};
const CExample g_aTreeExamples[] = {
    { "mivora tree \"a+b*c\"", "one text" },
    { "mivora tree -x+y", "a text may begin with a minus sign" },
    { "mivora tree --lines <formulas.txt", "one line for each line of a file" },
};
const CExample g_aInspectExamples[] = {
    { "mivora render \"a/b\" -o half.fml && mivora inspect half.fml", "store, and look into it" },
    { "mivora inspect half.fml -o half.png", "draw the stored tree" },
};
const CExample g_aEditExamples[] = {
    { "mivora edit \"a/b\" --script gestures.txt -o new.fml",
      "play a file of gestures, and store the result" },
    { "mivora edit --fml half.fml --script gestures.txt --size 400x300", "a stored formula" },
};
