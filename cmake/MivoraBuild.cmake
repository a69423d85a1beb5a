# How everything in this tree is compiled, and the two kinds of target that the folders declare.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

add_compile_options(-Wall -Wextra -Wpedantic $<$<COMPILE_LANGUAGE:CXX>:-Wshadow>)
if(MIVORA_WERROR)
    add_compile_options(-Werror)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 sees copies of negative length in its own std::string, and the release of a string
    # that is never released in an inlined destructor.
    add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>
                        $<$<COMPILE_LANGUAGE:CXX>:-Wno-free-nonheap-object>)
endif()
if(WIN32)
    # The system's headers read the thread's own block at addresses near 0, which GCC 12 takes for
    # a null pointer.
    add_compile_options(--param=min-pagesize=0)
endif()
# The coordinate arithmetic is defined in single steps: a fused multiply-add would round differently.
add_compile_options(-ffp-contract=off -fno-semantic-interposition)
if(MIVORA_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=address,undefined)
endif()
if(MIVORA_THREADS)
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=thread)
endif()
if(MIVORA_COVERAGE)
    add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
    add_link_options(-fprofile-instr-generate)
endif()
if(MIVORA_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=address,undefined)
    set(MIVORA_FUZZ_LINK -fsanitize=fuzzer,address,undefined)
endif()

# Adds to ARG_SOURCES of the caller what it names for this system: files behind BACKEND stand in the
# folders of both systems, linux/ and win32/, those behind LINUX or WIN32 in one.
macro(mivora_system_sources)
    if(WIN32)
        set(system_files ${ARG_BACKEND} ${ARG_WIN32})
        list(TRANSFORM system_files PREPEND win32/)
    else()
        set(system_files ${ARG_BACKEND} ${ARG_LINUX})
        list(TRANSFORM system_files PREPEND linux/)
    endif()
    list(APPEND ARG_SOURCES ${system_files})
endmacro()

# mivora_layer(NAME SOURCES ... [BACKEND ...] [LINUX ...] [WIN32 ...] [DEPENDS layer ...]
#              [LIBRARIES target ...])
# One room of the library, as objects that the libraries that ship are put together from.
function(mivora_layer name)
    cmake_parse_arguments(ARG "" "" "SOURCES;BACKEND;LINUX;WIN32;DEPENDS;LIBRARIES" ${ARGN})
    set(target mivora_${name})
    mivora_system_sources()
    if(ARG_SOURCES)
        add_library(${target} OBJECT ${ARG_SOURCES})
        set(scope PUBLIC)
    else()
        add_library(${target} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_include_directories(${target} ${scope} ${PROJECT_SOURCE_DIR}/src
                                                  ${PROJECT_SOURCE_DIR}/include)
    foreach(layer ${ARG_DEPENDS})
        target_link_libraries(${target} ${scope} mivora_${layer})
    endforeach()
    target_link_libraries(${target} ${scope} ${ARG_LIBRARIES})
endfunction()

# mivora_add_layers(TARGET layer ...): puts the objects of these rooms into a library or program.
function(mivora_add_layers target)
    foreach(layer ${ARGN})
        get_target_property(type mivora_${layer} TYPE)
        if(type STREQUAL OBJECT_LIBRARY)
            target_sources(${target} PRIVATE $<TARGET_OBJECTS:mivora_${layer}>)
        endif()
    endforeach()
endfunction()

# mivora_tests(NAME SOURCES ... [BACKEND ...] [LINUX ...] [WIN32 ...] [LAYERS layer ...]
#              [LIBRARIES target ...])
# One test program with its own ctest entry; LAYERS names all rooms whose objects it needs.
function(mivora_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;BACKEND;LINUX;WIN32;LAYERS;LIBRARIES" ${ARGN})
    mivora_system_sources()
    if(NOT ARG_SOURCES)
        return()
    endif()
    add_executable(${name}_tests ${ARG_SOURCES})
    foreach(layer ${ARG_LAYERS})
        target_link_libraries(${name}_tests PRIVATE mivora_${layer})
    endforeach()
    mivora_add_layers(${name}_tests ${ARG_LAYERS})
    add_dependencies(${name}_tests fonts)
    target_include_directories(${name}_tests PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(${name}_tests PRIVATE
        MIVORA_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data")
    target_link_libraries(${name}_tests PRIVATE ${ARG_LIBRARIES} GTest::gtest GTest::gtest_main)
    add_test(NAME ${name} COMMAND ${name}_tests)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()

# mivora_version_resource(TARGET FILE DESCRIPTION): what Windows shows as the file's properties.
function(mivora_version_resource target file description)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE)
        set(version_type VFT_APP)
    else()
        set(version_type VFT_DLL)
    endif()
    set(version_name ${target})
    set(version_file ${file})
    set(version_description ${description})
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
    target_sources(${target} PRIVATE ${resource})
endfunction()

# mivora_class_library_exports(TARGET layer ...): the DLL exports what these rooms define.
function(mivora_class_library_exports target)
    set(objects)
    foreach(layer ${ARGN})
        list(APPEND objects $<TARGET_OBJECTS:mivora_${layer}>)
    endforeach()
    set(file ${CMAKE_CURRENT_BINARY_DIR}/${target}.def)
    set(script ${PROJECT_SOURCE_DIR}/cmake/ClassLibraryExports.cmake)
    add_custom_command(OUTPUT ${file}
        COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM} -DFILE=${file} -P ${script} -- ${objects}
        DEPENDS ${script} ${objects} COMMAND_EXPAND_LISTS VERBATIM)
    target_sources(${target} PRIVATE ${file})
endfunction()
