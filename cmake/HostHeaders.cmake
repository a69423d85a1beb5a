# Header-only packages of the build machine for a cross build, without its other headers.

# mivora_header_package(NAME folder ...)
# Makes NAME an imported target whose include directory holds the named folders of /usr/include
# and nothing else: /usr/include itself would put the C library's headers before the target's.
function(mivora_header_package name)
    string(MAKE_C_IDENTIFIER ${name} directory)
    set(directory ${CMAKE_BINARY_DIR}/host_headers/${directory})
    file(MAKE_DIRECTORY ${directory})
    foreach(folder ${ARGN})
        if(NOT IS_DIRECTORY /usr/include/${folder})
            message(FATAL_ERROR "${name}: /usr/include/${folder} is missing (scripts/deps.sh)")
        endif()
        file(CREATE_LINK /usr/include/${folder} ${directory}/${folder} SYMBOLIC)
    endforeach()
    add_library(${name} INTERFACE IMPORTED GLOBAL)
    target_include_directories(${name} INTERFACE ${directory})
endfunction()
