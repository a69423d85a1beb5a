# Mathematical functions of newlib, from the sources that the distribution has as a package. Its pow,
# exp and log are those of the C library of the other system, which has them in two builds and takes
# the one that suits the machine.

# mivora_newlib_sources(TARGET): puts them into a target; platform/base/win32/newlib/names.h tells
# what they are called.
function(mivora_newlib_sources target)
    file(GLOB archive /usr/src/newlib/newlib-*.tar.xz)
    if(NOT archive)
        message(FATAL_ERROR "the sources of newlib are missing (scripts/deps.sh)")
    endif()
    set(folder ${PROJECT_BINARY_DIR}/newlib)
    if(NOT EXISTS ${folder}/COPYING.NEWLIB)
        file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${folder}
            PATTERNS */newlib/libm/common/* */newlib/libm/math/* */COPYING.NEWLIB)
        file(GLOB licence ${folder}/*/COPYING.NEWLIB)
        file(COPY ${licence} DESTINATION ${folder})
    endif()
    file(GLOB libm ${folder}/*/newlib/libm)
    set(names ${PROJECT_SOURCE_DIR}/src/platform/base/win32/newlib)

    set(words -w -std=gnu11 -include ${names}/names.h -I${names} -I${libm}/common)
    foreach(variant plain fma)
        set(variant_words ${words} -DNEWLIB_VARIANT=${variant})
        if(variant STREQUAL fma)
            list(APPEND variant_words -mfma -mavx2 -ffp-contract=fast -DHAVE_FAST_FMA=1)
        endif()
        foreach(name pow exp log pow_log_data exp_data log_data math_err)
            mivora_newlib_source(${target} ${libm}/common/${name}.c ${name}_${variant}.c
                "${variant_words}")
        endforeach()
    endforeach()
    foreach(name common/s_expm1 common/math_err math/e_log10 math/e_rem_pio2 math/e_sinh math/e_cosh
        math/k_rem_pio2 math/s_tanh)
        get_filename_component(file ${name} NAME)
        mivora_newlib_source(${target} ${libm}/${name}.c ${file}_any.c "${words}")
    endforeach()
endfunction()

# One source under a name of its own, so that it can be compiled more than once.
function(mivora_newlib_source target source name words)
    set(file ${CMAKE_CURRENT_BINARY_DIR}/newlib/${name})
    file(CONFIGURE OUTPUT ${file} CONTENT "#include \"${source}\"\n")
    set_source_files_properties(${file} PROPERTIES COMPILE_OPTIONS "${words}")
    target_sources(${target} PRIVATE ${file})
endfunction()
