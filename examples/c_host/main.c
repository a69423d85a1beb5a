/* A C host: one call makes the metafile and tells its size.
 *
 *     c_host 'a/b' fraction.wmf
 */
#include <mivora/mivora.h>

#include <stdio.h>

/* Messages of the library come here instead of to standard error. */
static int ShowMessage(const char* pszText, unsigned nType, void* pContext)
{
    (void)nType;
    fprintf((FILE*)pContext, "mivora: %s\n", pszText);
    return 1;
}

int main(int argc, char** argv)
{
    float fWidth = 0;
    float fHeight = 0;

    if (argc != 3)
    {
        fprintf(stderr, "usage: c_host FORMULA FILE.wmf\n");
        return 2;
    }
    AfxSetMessageBoxHandler(ShowMessage, stderr);
    StringToEMFFormula(argv[1], argv[2], &fWidth, &fHeight);
    /* Both sizes are 22 times the size in screen pixels. */
    printf("%.9g x %.9g pixels\n", fWidth / 22, fHeight / 22);
    return 0;
}
