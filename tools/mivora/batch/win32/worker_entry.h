// How a worker is started: as this program, with a word that no command has and two pipes.
#pragma once

constexpr char WORKER_WORD[] = "--work";

// The life of the process; the words are the numbers of inherited handles. Gives the exit status.
int RunWorker(const char* pszFrom, const char* pszTo);
