// One call at a time: for the functions that hosts of other languages call from any of their
// threads.
#pragma once

// Stands at the start of such a function and holds the library for the whole call. Message handlers
// run inside and may call again.
class CLibraryLock
{
public:
    CLibraryLock();
    ~CLibraryLock();
    CLibraryLock(const CLibraryLock&) = delete;
    CLibraryLock& operator=(const CLibraryLock&) = delete;
};
