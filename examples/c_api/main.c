/* A host of the C interface: a picture of a formula, its size, and what is wrong with its text.
 *
 *     c_api 'a/b' fraction.svg
 */
#include <mivora/mivora_c.h>

#include <stdio.h>
#include <string.h>

static int Fail(const char* what)
{
    mivora_error error;
    mivora_last_error(&error);
    fprintf(stderr, "%s: %s\n%s", what, error.message, error.excerpt);
    return 1;
}

static int WriteFile(const char* path, const char* bytes, size_t size)
{
    FILE* file = fopen(path, "wb");
    int whole = file != NULL && fwrite(bytes, 1, size, file) == size;
    if (file != NULL && fclose(file) != 0)
        whole = 0;
    return whole;
}

static int Draw(mivora_formula* formula, const char* path)
{
    const char* point = strrchr(path, '.');
    mivora_paint paint = { 0 };
    mivora_size measured;
    mivora_error problem;
    char* bytes;
    size_t size;

    paint.struct_size = sizeof paint;
    paint.transparent = 1;
    if (mivora_formula_picture(formula, point != NULL ? point + 1 : "", &paint, &bytes, &size,
                               &measured) != MIVORA_OK)
        return Fail(path);
    if (!WriteFile(path, bytes, size))
    {
        perror(path);
        mivora_free(bytes);
        return 1;
    }
    mivora_free(bytes);
    printf("%g x %g pixels, %g below the line\n", measured.width, measured.height, measured.depth);
    /* What could be understood is drawn; the rest is told. */
    if (mivora_formula_problem(formula, &problem) == MIVORA_OK && problem.status != MIVORA_OK)
        printf("%s\n%s\n", problem.message, problem.excerpt);
    return 0;
}

int main(int argc, char** argv)
{
    mivora_formula* formula;
    int result;

    if (argc != 3)
    {
        fprintf(stderr, "usage: c_api FORMULA FILE.svg|png|bmp|pdf|emf\n");
        return 2;
    }
    if (mivora_formula_from_text(argv[1], MIVORA_WHOLE, NULL, &formula) != MIVORA_OK)
        return Fail(argv[1]);
    result = Draw(formula, argv[2]);
    mivora_formula_free(formula);
    return result;
}
