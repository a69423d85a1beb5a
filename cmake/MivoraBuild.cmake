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
# The coordinate arithmetic is defined in single steps: a fused multiply-add would round differently.
add_compile_options(-ffp-contract=off -fno-semantic-interposition)
if(MIVORA_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer -O1)
    add_link_options(-fsanitize=address,undefined)
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

# mivora_layer(NAME SOURCES ... [DEPENDS layer ...] [LIBRARIES target ...])
# One room of the library, as objects that the libraries that ship are put together from.
function(mivora_layer name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;LIBRARIES" ${ARGN})
    set(target mivora_${name})
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

# mivora_tests(NAME SOURCES ... [LAYERS layer ...] [LIBRARIES target ...])
# One test program with its own ctest entry; LAYERS names all rooms whose objects it needs.
function(mivora_tests name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LAYERS;LIBRARIES" ${ARGN})
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
