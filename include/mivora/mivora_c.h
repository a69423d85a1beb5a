/* Formulas for every language that can call C: texts go in, pictures, numbers and other forms come
 * out, as bytes. The library behind it is libmivora-c.so or mivora-c.dll; it needs no other one of
 * Mivora, and exports these functions alone.
 *
 * Strings are UTF-8 both ways. Every function but those that end something gives a status; whatever
 * goes wrong comes back as one: no exception, no message box and no line on standard error leaves
 * the library, but for one line where the face of a font is missing. Any thread may call at any
 * time; one call at a time is let in. The objects of one thread may be used by another one.
 *
 * The structures of options begin with their own size; all other fields may be zero, which stands
 * for the default. Where a pointer to options is null, all are defaults. */
#ifndef MIVORA_MIVORA_C_H
#define MIVORA_MIVORA_C_H

#include <stddef.h>

#ifdef __cplusplus
extern "C"
{
#endif

/* # Status and errors */

/* What became of a call. Numbers stay what they are; there may be more of them one day. */
typedef enum mivora_status
{
    MIVORA_OK = 0,
    MIVORA_INVALID_ARGUMENT = 1, /* a null pointer, an option that is out of range or does not fit */
    MIVORA_INVALID_TEXT = 2,     /* no UTF-8, a character that formulas do not have, or too long */
    MIVORA_SYNTAX_ERROR = 3,     /* a text that could be read in part only */
    MIVORA_TEXT_DROPPED = 4,     /* all was read, and a part of it is not in the picture */
    MIVORA_INVALID_DATA = 5,     /* bytes that are no stored formula or no picture, or damaged ones */
    MIVORA_NO_SOURCE = 6,        /* a picture that carries no formula */
    MIVORA_UNSUPPORTED = 7,      /* another system has this format */
    MIVORA_OUT_OF_MEMORY = 8,
    MIVORA_FAILED = 9 /* anything else; the message tells it */
} mivora_status;

/* Where and why something went wrong. */
typedef struct mivora_error
{
    mivora_status status;
    size_t position;     /* of the character in the text, from 1; 0: of none */
    const char* message; /* one sentence without its final point; empty for MIVORA_OK */
    const char* excerpt; /* the text around the place, a line break, marks below it; or empty */
} mivora_error;

/* The error of this thread's last call of a function that gives a status, or MIVORA_OK. The strings
 * are valid until the thread's next call. */
mivora_status mivora_last_error(mivora_error* error);

/* Ends bytes that a function of this library has given. Null is ignored. */
void mivora_free(void* bytes);

/* The version of the library, such as "1.2.3"; valid as long as it is loaded. */
const char* mivora_version(void);

/* # Making formulas */

/* Stands for a length: the text ends at its first NUL. */
#define MIVORA_WHOLE ((size_t)-1)

/* A formula: its text, its tree and how its letters look. */
typedef struct mivora_formula mivora_formula;

/* How the letters of a formula look, and how its text is read. */
typedef struct mivora_look
{
    size_t struct_size; /* sizeof(mivora_look) */
    int points;         /* size of the text, 4 to 400; 0: 12 */
    int greek;          /* not 0: Greek letters in the text are read as such */
    const char* face;   /* of letters, figures and names, at most 31 characters; null: Times New Roman */
} mivora_look;

/* Makes a formula from a text. A syntax error is no failure: the formula is then what could be
 * understood, and mivora_formula_problem tells the rest. The formula is the caller's, who ends it
 * with mivora_formula_free; where the status is not MIVORA_OK it is null. */
mivora_status mivora_formula_from_text(const char* text, size_t length, const mivora_look* look,
                                       mivora_formula** formula);

/* Makes a formula from the bytes of a stored one (an FML file): nothing is parsed, and it looks as
 * it was stored, but for what the look says. Damaged bytes are MIVORA_INVALID_DATA. */
mivora_status mivora_formula_from_fml(const void* bytes, size_t size, const mivora_look* look,
                                      mivora_formula** formula);

/* Ends a formula. Null is ignored. */
void mivora_formula_free(mivora_formula* formula);

/* What there is to be told about the text of a formula: MIVORA_SYNTAX_ERROR, MIVORA_TEXT_DROPPED,
 * or MIVORA_OK if it is sound. The strings are valid as long as the formula. */
mivora_status mivora_formula_problem(const mivora_formula* formula, mivora_error* problem);

/* The text that the formula was made from. Text and length are the caller's (mivora_free); a NUL
 * that does not count stands behind the end, here and in all bytes that the library gives. */
mivora_status mivora_formula_text(const mivora_formula* formula, char** text, size_t* length);

/* # Pictures */

/* How a formula is painted. */
typedef struct mivora_paint
{
    size_t struct_size;     /* sizeof(mivora_paint) */
    int dpi;                /* dots per inch, 10 to 2400; 0: 96, the resolution of a screen */
    int margin;             /* pixels on each side, 0 to 10000 */
    int exact;              /* not 0: the formula's rectangle, whatever stands out of it */
    int boxes;              /* not 0: rectangles and axes of the nodes over the picture */
    int grayed;             /* not 0: in the grey of what cannot be used */
    int transparent;        /* not 0: no background */
    int no_source;          /* not 0: neither the text nor its words travel inside */
    const char* color;      /* a name, #rgb, #rrggbb, or for SVG currentColor; null: as it is */
    const char* background; /* a name, #rgb or #rrggbb; null: white */
} mivora_paint;

/* How large a picture is, and how it stands in a line of text. Pixels of the picture. */
typedef struct mivora_size
{
    double width;
    double height;
    double axis;  /* from the top to the axis, on which fraction bars stand */
    double depth; /* from the line on which letters stand to the bottom */
    double em;    /* size of the text */
} mivora_size;

/* The size that a picture with these options would have. */
mivora_status mivora_formula_size(mivora_formula* formula, const mivora_paint* paint,
                                  mivora_size* size);

/* A picture. The format is "svg", "png", "bmp", "pdf" (not on Windows: MIVORA_UNSUPPORTED), "emf" or
 * "wmf"; the last two are the same enhanced metafile, which knows no option but grayed and no_source.
 * The bytes are the caller's (mivora_free); measured may be null. */
mivora_status mivora_formula_picture(mivora_formula* formula, const char* format,
                                     const mivora_paint* paint, char** bytes, size_t* size,
                                     mivora_size* measured);

/* The text of the formula that travels in a PNG, SVG, PDF or metafile; MIVORA_NO_SOURCE if none
 * does. The text is the caller's (mivora_free). */
mivora_status mivora_picture_source(const void* bytes, size_t size, char** text, size_t* length);

/* # Other forms */

/* The bytes of the formula as a stored one (an FML file). They are the caller's (mivora_free). */
mivora_status mivora_formula_fml(mivora_formula* formula, char** bytes, size_t* size);

/* What mivora_formula_write writes. */
typedef enum mivora_form
{
    MIVORA_TREE_JSON = 0,   /* the nodes, with type, kind and symbol */
    MIVORA_LAYOUT_JSON = 1, /* the nodes with their places, in pixels of a screen of 96 dpi */
    MIVORA_MATHML = 2,      /* a math element of MathML Core */
    MIVORA_LATEX = 3,       /* what goes between dollar signs; needs amsmath */
    MIVORA_SPEECH = 4,      /* English words */
    MIVORA_FORTRAN = 5      /* an expression with continuation lines */
} mivora_form;

/* The formula in another form. The text is the caller's (mivora_free). */
mivora_status mivora_formula_write(mivora_formula* formula, mivora_form form, char** text,
                                   size_t* length);

/* # Numbers */

/* The value of a text. MIVORA_SYNTAX_ERROR, with the message of the calculator, if not all of it
 * could be calculated: the value is then that of what stands before. */
mivora_status mivora_calculate(const char* text, size_t length, double* value);

#ifdef __cplusplus
}
#endif

#endif
