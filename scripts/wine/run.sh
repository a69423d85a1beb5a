#!/bin/sh
# Runs a Windows program: run.sh PROGRAM.exe [ARGUMENT ...]   Inside of session.sh only; elsewhere
# the program would make a prefix in the caller's home folder.
if [ -z "${MIVORA_WINE_SESSION-}" ]; then
    echo "run.sh: start me by scripts/wine/session.sh BUILD COMMAND ..." >&2
    exit 2
fi
exec wine "$@"
