// Where the system starts the program: words are bytes as they come.
#include "program.h"

int main(int argc, char** argv)
{
    return RunMivora(argc > 0 ? argc - 1 : 0, argv + 1);
}
