// What the command line offers, as data: parsing, help, the man page and the completions of the
// shells are all made from this table.
#pragma once

#include <span>
#include <string>

class CArguments;

enum EOption
{
    OPT_OUTPUT,
    OPT_DPI,
    OPT_BOXES,
    OPT_GRAYED,
    OPT_SELECT,
    OPT_STRICT,
    OPT_GREEK,
    OPT_LINES,
    OPT_HEX,
    OPT_DIRECTORY,
    OPT_FORMAT,
    OPT_JOBS,
    OPT_FML,
    OPT_JSON,
    OPT_SCRIPT,
    OPT_STORE,
    OPT_SIZE,
    OPT_READ_ONLY,
    OPT_POINTS,
    OPT_FONT,
    OPT_COLOR,
    OPT_BACKGROUND,
    OPT_TRANSPARENT,
    OPT_MARGIN,
    OPT_EXACT,
    OPT_EMBED,
    OPT_NO_EMBED,
    OPT_MANIFEST,
    OPT_HELP,
    OPT_COUNT
};

// What a value is, so that it can be checked, and completed in a shell.
enum EValue
{
    VALUE_NONE,  // a switch
    VALUE_TEXT,
    VALUE_NUMBER,  // a whole number from nMin to nMax
    VALUE_CHOICE,  // one of the words of pfnChoices
    VALUE_FILE,
    VALUE_FOLDER
};

struct COption
{
    EOption nId;
    const char* pszShort;  // one letter, or null
    const char* pszLong;
    const char* pszValue;  // how help calls the value; null for a switch
    EValue nValue;
    int nMin;
    int nMax;
    std::string (*pfnChoices)();  // separated by blanks
    const char* pszHelp;
    // Choices that the command itself refuses, with its reason; help tells nothing of them.
    std::string (*pfnRefusedChoices)() = nullptr;
};

// How the words that are no options are used.
enum EOperand
{
    OPERAND_NONE,
    OPERAND_TEXT,  // a formula: may begin with "-"
    OPERAND_FILE
};

struct CExample
{
    const char* pszCommand;
    const char* pszWhat;
};

struct CCommand
{
    const char* pszName;
    EOperand nOperand;
    const char* pszOperand;              // how help calls it
    std::span<const EOption> aRequired;  // options without which nothing is done
    std::span<const EOption> aOptions;   // all of them, in the order of the help text
    const char* pszSummary;              // half a sentence
    const char* pszDescription;          // paragraphs
    std::span<const CExample> aExamples;
    int (*pfnRun)(const CArguments&);  // gives the exit status
};

enum EStatus
{
    STATUS_DONE = 0,
    STATUS_FAILED = 1,
    STATUS_USAGE = 2
};

std::span<const CCommand> Commands();
const CCommand* FindCommand(const std::string& strName);
const COption& OptionOf(EOption nId);

// Paragraphs of the manual that belong to no single command.
struct CManualSection
{
    const char* pszTitle;
    const char* pszText;
};
std::span<const CManualSection> ManualSections();

int RunRender(const CArguments& arguments);
int RunBatch(const CArguments& arguments);
int RunMeasure(const CArguments& arguments);
int RunTree(const CArguments& arguments);
int RunLayout(const CArguments& arguments);
int RunText(const CArguments& arguments);
int RunCalc(const CArguments& arguments);
int RunComment(const CArguments& arguments);
int RunInspect(const CArguments& arguments);
int RunFonts(const CArguments& arguments);
int RunEdit(const CArguments& arguments);
int RunMathML(const CArguments& arguments);
int RunLatex(const CArguments& arguments);
int RunSpeak(const CArguments& arguments);

// What measure does with --json.
int MeasureAsJson(const CArguments& arguments);

// What layout does with --fml.
int LayOutStored(const CArguments& arguments);
