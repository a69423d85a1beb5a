// What help and manual say about Linux.
#include "words/platform_texts.h"

const char g_szDpiHelp[] =
    "Resolution of a .bmp or .png in dots per inch (default 96); a .svg or .pdf is enlarged "
    "in the same proportion";
const char g_szRenderDescription[] =
    "Draws the formula into FILE. The extension of FILE chooses the format: .wmf or .emf "
    "(enhanced metafile), .bmp, .png, .svg or .pdf, or .fml for a stored formula, which holds "
    "text, tree and format. Prints the width and the height, each 22 "
    "times the size in pixels of the screen.\n"
    "A syntax error is a warning: the text is shown with a mark under the place, and the part "
    "before it is drawn.";

const CExample g_aRenderExamples[] = {
    { "mivora render 'sqr(x+1)/2' -o root.wmf", "an enhanced metafile" },
    { "mivora render 'a/b' -o half.png --dpi 300", "a picture of 300 dots per inch" },
    { "echo 'a<=b' | mivora render - -o relation.svg", "the text from standard input" },
};
const CExample g_aBatchExamples[] = {
    { "mivora batch formulas.txt -d out --format svg --jobs 4", "four processes" },
    { "grep = notes | mivora batch - -d out", "from a pipe" },
};
const CExample g_aTreeExamples[] = {
    { "mivora tree 'a+b*c'", "one text" },
    { "mivora tree -x+y", "a text may begin with a minus sign" },
    { "mivora tree --lines <formulas.txt", "one line for each line of a file" },
};
const CExample g_aInspectExamples[] = {
    { "mivora render 'a/b' -o half.fml && mivora inspect half.fml", "store, and look into it" },
    { "mivora inspect half.fml -o half.svg", "draw the stored tree" },
};
const CExample g_aEditExamples[] = {
    { "printf 'double 5 5\\nkey 46\\n' | mivora edit 'a/b' --script - -o new.fml",
      "replace a part by a placeholder, and store the result" },
    { "mivora edit --fml half.fml --script gestures.txt --size 400x300", "a stored formula" },
};
