# What mivora-platform.dll exports: all that its objects define, but for the run-time library's
# templates, the functions of newlib and the variables inside of functions. A host that bound its std::string to our copy
# would break with the next compiler.
#
#     cmake -DNM=... -DFILE=out.def -P ClassLibraryExports.cmake -- object ...
set(objects)
set(behind_dashes FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(n RANGE ${last})
    if(behind_dashes)
        list(APPEND objects ${CMAKE_ARGV${n}})
    elseif(CMAKE_ARGV${n} STREQUAL "--")
        set(behind_dashes TRUE)
    endif()
endforeach()

execute_process(COMMAND ${NM} --extern-only --defined-only --format=posix ${objects}
    OUTPUT_VARIABLE listing COMMAND_ERROR_IS_FATAL ANY)
# A line is a name, a letter (small: local), an address; "t" and "T" is code.
string(REGEX MATCHALL "[^\n ]+ [A-Z] " symbols "${listing}")
set(of_run_time "^_Z(T[A-Z]P?|NK?)?N?(S[a-z]|9__gnu_cxx)")
set(exports)
foreach(symbol ${symbols})
    string(REGEX REPLACE " .*" "" name ${symbol})
    if(NOT name MATCHES "${of_run_time}" AND NOT name MATCHES "^newlib_" AND NOT name MATCHES "^(_ZZ|_ZGV|_ZT[ISV]Z|\\.)")
        if(NOT symbol MATCHES " T $")
            string(APPEND name " DATA")
        endif()
        list(APPEND exports ${name})
    endif()
endforeach()
list(SORT exports)
list(REMOVE_DUPLICATES exports)
list(JOIN exports "\n    " lines)
file(WRITE ${FILE} "EXPORTS\n    ${lines}\n")
