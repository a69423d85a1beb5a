// The commands and their options, of which help, manual and completions are made.
#include "words/command_table.h"

#include <cassert>
#include <cstring>

#include "picture/picture.h"
#include "pictures/format_names.h"
#include "words/platform_texts.h"

namespace
{
// One row for each EOption, in its order.
constexpr COption s_aOptions[] = {
    { OPT_OUTPUT, "o", "output", "FILE", VALUE_FILE, 0, 0, nullptr,
      "Write the picture to FILE, or to standard output for -; its extension chooses the format" },
    { OPT_DPI, nullptr, "dpi", "N", VALUE_NUMBER, LEAST_DPI, MOST_DPI, nullptr, g_szDpiHelp },
    { OPT_BOXES, nullptr, "boxes", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Draw the rectangles of the nodes and their axes over the picture" },
    { OPT_GRAYED, nullptr, "grayed", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Draw the formula in grey" },
    { OPT_SELECT, nullptr, "select", "PATH", VALUE_TEXT, 0, 0, nullptr,
      "Show a node as selected: letters L and R lead down from the root, then :1 for the node "
      "alone or :2 for all below it" },
    { OPT_STRICT, nullptr, "strict", nullptr, VALUE_NONE, 0, 0, nullptr,
      "End with status 1 if a text has an error or a part of it is left out" },
    { OPT_GREEK, nullptr, "greek", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Take the Greek letters of a text as the language writes them (greek a)" },
    { OPT_LINES, nullptr, "lines", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Take every line of standard input as a text and give one line for each" },
    { OPT_HEX, nullptr, "hex", nullptr, VALUE_NONE, 0, 0, nullptr,
      "With --lines: each line is a text in hexadecimal, as bytes of Windows-1252" },
    { OPT_DIRECTORY, "d", "directory", "DIR", VALUE_FOLDER, 0, 0, nullptr,
      "Put the files into DIR" },
    { OPT_FORMAT, nullptr, "format", "FORMAT", VALUE_CHOICE, 0, 0, OfferedFormats,
      "Write this format, whatever the extension; the files of batch bear it as theirs (default "
      "wmf)",
      FormatsElsewhere },
    { OPT_JOBS, nullptr, "jobs", "N", VALUE_NUMBER, 1, 256, nullptr,
      "Work with N processes (default 1)" },
    { OPT_FML, nullptr, "fml", "FILE", VALUE_FILE, 0, 0, nullptr,
      "Take the stored formula in FILE instead of a TEXT" },
    { OPT_JSON, nullptr, "json", nullptr, VALUE_NONE, 0, 0, nullptr, "Print one line of JSON" },
    { OPT_SCRIPT, nullptr, "script", "FILE", VALUE_FILE, 0, 0, nullptr,
      "Take the gestures from FILE, or from standard input if it is -" },
    { OPT_STORE, "o", "output", "FILE", VALUE_FILE, 0, 0, nullptr,
      "Store the formula in FILE (.fml) at the end" },
    { OPT_SIZE, nullptr, "size", "WxH", VALUE_TEXT, 0, 0, nullptr,
      "Size of the window in pixels (default 300x200)" },
    { OPT_READ_ONLY, nullptr, "read-only", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Begin with a control that refuses editing" },
    { OPT_POINTS, nullptr, "size", "POINTS", VALUE_NUMBER, LEAST_POINTS, MOST_POINTS, nullptr,
      "Size of the text in points (default 12)" },
    { OPT_FONT, nullptr, "font", "FACE", VALUE_TEXT, 0, 0, nullptr,
      "Face of letters, figures and names (default Times New Roman)" },
    { OPT_COLOR, nullptr, "color", "COLOUR", VALUE_TEXT, 0, 0, nullptr,
      "Colour of the formula: a name, #rgb or #rrggbb; currentColor in a .svg takes that of the "
      "text around it" },
    { OPT_BACKGROUND, nullptr, "background", "COLOUR", VALUE_TEXT, 0, 0, nullptr,
      "Colour behind the formula (default white)" },
    { OPT_TRANSPARENT, nullptr, "transparent", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Put no colour behind the formula" },
    { OPT_MARGIN, nullptr, "margin", "N", VALUE_NUMBER, 0, MOST_MARGIN, nullptr,
      "Leave N pixels free on each side (default 0)" },
    { OPT_EXACT, nullptr, "exact", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Keep to the formula's rectangle, and cut what stands out of it" },
    { OPT_EMBED, nullptr, "embed", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Put the text into the comment of a metafile too" },
    { OPT_NO_EMBED, nullptr, "no-embed", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Leave the text out of the picture" },
    { OPT_MANIFEST, nullptr, "manifest", "FILE", VALUE_FILE, 0, 0, nullptr,
      "Write a line of JSON for each formula to FILE" },
    { OPT_HELP, nullptr, "help", nullptr, VALUE_NONE, 0, 0, nullptr,
      "Show this help; also -h, where that is no TEXT" },
};
static_assert(std::size(s_aOptions) == OPT_COUNT);

constexpr EOption s_aRequiredRender[] = { OPT_OUTPUT };
constexpr EOption s_aRequiredBatch[] = { OPT_DIRECTORY };
constexpr EOption s_aRequiredEdit[] = { OPT_SCRIPT };

constexpr EOption s_aRender[] = { OPT_OUTPUT, OPT_FORMAT, OPT_DPI,        OPT_POINTS,
                                  OPT_FONT,   OPT_COLOR,  OPT_BACKGROUND, OPT_TRANSPARENT,
                                  OPT_MARGIN, OPT_EXACT,  OPT_BOXES,      OPT_GRAYED,
                                  OPT_SELECT, OPT_EMBED,  OPT_NO_EMBED,   OPT_JSON,
                                  OPT_GREEK,  OPT_STRICT, OPT_HELP };
constexpr EOption s_aBatch[] = { OPT_DIRECTORY, OPT_FORMAT,   OPT_DPI,        OPT_POINTS,
                                 OPT_FONT,      OPT_COLOR,    OPT_BACKGROUND, OPT_TRANSPARENT,
                                 OPT_MARGIN,    OPT_EXACT,    OPT_GRAYED,     OPT_EMBED,
                                 OPT_NO_EMBED,  OPT_MANIFEST, OPT_JOBS,       OPT_GREEK,
                                 OPT_STRICT,    OPT_HELP };
constexpr EOption s_aMeasure[] = { OPT_JSON,  OPT_DPI,   OPT_POINTS, OPT_FONT, OPT_MARGIN,
                                   OPT_EXACT, OPT_GREEK, OPT_STRICT, OPT_HELP };
constexpr EOption s_aLines[] = { OPT_LINES, OPT_HEX, OPT_GREEK, OPT_STRICT, OPT_HELP };
constexpr EOption s_aLayout[] = { OPT_FML, OPT_LINES, OPT_HEX, OPT_GREEK, OPT_STRICT, OPT_HELP };
constexpr EOption s_aInspect[] = { OPT_JSON, OPT_OUTPUT, OPT_HELP };
constexpr EOption s_aEdit[] = { OPT_SCRIPT, OPT_FML,   OPT_SIZE, OPT_READ_ONLY,
                                OPT_STORE,  OPT_GREEK, OPT_HELP };
constexpr EOption s_aPlain[] = { OPT_HELP };

// The same in all shells.
constexpr CExample s_aMathMLExamples[] = { { "mivora mathml a/b", "a fraction" } };
constexpr CExample s_aLatexExamples[] = { { "mivora latex a/b", "a fraction" } };
constexpr CExample s_aSpeakExamples[] = {
    { "mivora speak a/b", "a fraction" },
    { "mivora speak --lines <formulas.txt", "one line for each line of a file" },
};

constexpr CCommand s_aCommands[] = {
    { "render", OPERAND_TEXT, "TEXT", s_aRequiredRender, s_aRender, "draw a formula into a file",
      g_szRenderDescription, g_aRenderExamples, RunRender },
    { "batch", OPERAND_FILE, "FILE", s_aRequiredBatch, s_aBatch,
      "draw every line of a file into a file of its own",
      "Takes one formula from each line of FILE, or of standard input if FILE is -, and draws it "
      "into a file that is named by the number of the line in six digits. An empty line is the "
      "empty formula.\n"
      "Each failure and each syntax error is told with its line and position, and the rest goes "
      "on. The last line counts: \"N done, N with syntax errors, N failed\". The status is 1 if "
      "a line failed.",
      g_aBatchExamples, RunBatch },
    { "measure",
      OPERAND_TEXT,
      "TEXT",
      {},
      s_aMeasure,
      "tell the size of a formula",
      "Prints left, top, right and bottom in pixels of the screen, a tab, the same in hundredths "
      "of an inch (y upwards), a tab, and the axis: its distance from the top in pixels.\n"
      "With --json it tells how large a picture would be, and how it stands in a line of text: "
      "width and height, axis (from the top to the middle of a plus sign) and depth (from the "
      "line that letters stand on to the bottom), in pixels and in em.",
      {},
      RunMeasure },
    { "tree",
      OPERAND_TEXT,
      "TEXT",
      {},
      s_aLines,
      "show the tree of a formula as one line",
      "Prints the tree, a tab, the position of a syntax error or 0, a tab, the message, a tab, "
      "and the gap of products. A node is (TYPE[kind] \"symbol\" left right); a missing child "
      "is -, and @Symbol behind a symbol tells its face. A text that is refused gives - for "
      "the tree.",
      g_aTreeExamples,
      RunTree },
    { "layout",
      OPERAND_TEXT,
      "TEXT",
      {},
      s_aLayout,
      "tell the place of every node as JSON",
      "Prints one line of JSON: the gap of products, the rectangle of the formula and its nodes. "
      "A node has type, kind, symbol, level, height (of its font, tenths of a point), extent (of "
      "its text), own (size of its own part), size (of all of it), axis, rect (of its own part, "
      "the formula painted at 0, 0), left and right. All is in pixels of the screen.\n"
      "The nodes of a stored formula are taken as they stand in the file; their fonts are those of "
      "the default format.",
      {},
      RunLayout },
    { "text",
      OPERAND_TEXT,
      "TEXT",
      {},
      s_aLines,
      "write a formula as a FORTRAN expression",
      "Prints the expression with its continuation lines. With --lines each expression takes one "
      "line, its line breaks written as \\x0D\\x0A.",
      {},
      RunText },
    { "calc",
      OPERAND_TEXT,
      "TEXT",
      {},
      s_aLines,
      "calculate a text",
      "Prints the value, a tab, the position of an error or 0, a tab, and the message, which is "
      "in German. The text has numbers, + - * / ^, brackets and functions; angles are radians.",
      {},
      RunCalc },
    { "comment",
      OPERAND_FILE,
      "FILE",
      {},
      s_aPlain,
      "show the text that a picture was made from",
      "Prints the text in the comment of an enhanced metafile, or the one inside a .svg, .png or "
      ".pdf.",
      {},
      RunComment },
    { "inspect",
      OPERAND_FILE,
      "FILE",
      {},
      s_aInspect,
      "show what a stored formula holds",
      "Prints the text, the rectangle (hundredths of an inch), the name, the tree and the format "
      "of the formula that is stored in the .fml file FILE, a labelled line each. The tree is the "
      "one in the file, in the form of the command tree; nothing is parsed. In text and name "
      "control characters and the backslash are \\xNN.\n"
      "With -o the stored tree is drawn too, in any format that render has.",
      g_aInspectExamples,
      RunInspect },
    { "fonts",
      OPERAND_NONE,
      nullptr,
      {},
      s_aPlain,
      "show where the fonts come from",
      "Prints a line for each face: its name, a tab, and the file; - where another face is put in "
      "its place, and on Windows, which tells no files.",
      {},
      RunFonts },
    { "edit", OPERAND_TEXT, "TEXT", s_aRequiredEdit, s_aEdit,
      "edit a formula by gestures that are written down",
      "Does what the formula control does with mouse and keys, in a window that exists in memory "
      "only, and prints its state before the first gesture and after each. Each line of the script "
      "is one of:\n"
      "size W H; paint; move X Y [left]; press X Y; release X Y; double X Y; key CODE [ctrl] "
      "[shift]; char CODE; blur; hscroll CODE [TRACK]; vscroll CODE [TRACK]; wheel DELTA; cut; "
      "copy; paste; all; delete; readonly 0|1; clip HEX|-; enter X Y [ctrl]; over X Y [ctrl]; "
      "leave; drop X Y.\n"
      "Blank lines and lines that begin with # are skipped; any other line ends the run. Places "
      "are pixels of the window, codes are those of keys, characters and scroll messages.\n"
      "A state is one line, a tab between two fields: the tree, in the form of the command tree; "
      "the selected node, letters L and R that lead down from the root, and its mode; the node "
      "under the mouse; whether the selection can be dragged and was clicked, two digits, and a "
      "third while a drag runs; the editor, with its node, text, selection and place; the scroll "
      "bars (which are on, position, end and page of both) and the size of the window inside of "
      "them; the number of undo steps and of changes that were told; the answer to a drag.",
      g_aEditExamples, RunEdit },
    { "mathml",
      OPERAND_TEXT,
      "TEXT",
      {},
      s_aLayout,
      "write a formula as MathML",
      "Prints a math element of MathML Core on one line, for a browser or a screen reader. What it "
      "shows is what a picture of the formula shows; an intent tells the meaning of a sign that "
      "does not show it.",
      s_aMathMLExamples,
      RunMathML },
    { "latex",
      OPERAND_TEXT,
      "TEXT",
      {},
      s_aLayout,
      "write a formula as LaTeX",
      "Prints what goes between the dollar signs of a LaTeX document, on one line. It needs the "
      "package amsmath and nothing else.",
      s_aLatexExamples,
      RunLatex },
    { "speak",
      OPERAND_TEXT,
      "TEXT",
      {},
      s_aLayout,
      "tell a formula in words",
      "Prints the English words from which a listener can write the formula down. What belongs "
      "together without showing it is called a quantity.",
      s_aSpeakExamples,
      RunSpeak },
};

constexpr CManualSection s_aSections[] = {
    { "TEXT",
      "A TEXT is one formula in the language of the library, in UTF-8. It is converted to "
      "Windows-1252; a character that this code page does not have is an error that tells its "
      "position. A TEXT may begin with -: a word that is no option of the command is the TEXT. "
      "The word -- ends the options. The word - alone stands for all of standard input, less "
      "one final line break." },
    { "EXIT STATUS",
      "0 for success, 1 for a failed operation, 2 for wrong usage, 130 after Ctrl+C. A syntax "
      "error, "
      "and text that is not in the picture, are no failure unless --strict is given. Errors and "
      "warnings are on standard error." },
};
}  // namespace

std::span<const CCommand> Commands()
{
    return s_aCommands;
}

const CCommand* FindCommand(const std::string& strName)
{
    for (const CCommand& command : s_aCommands)
    {
        if (strName == command.pszName)
            return &command;
    }
    return nullptr;
}

const COption& OptionOf(EOption nId)
{
    assert(s_aOptions[nId].nId == nId);
    return s_aOptions[nId];
}

std::span<const CManualSection> ManualSections()
{
    return s_aSections;
}
