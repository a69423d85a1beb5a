# Copies headers so that they stand below <mivora/...>: in a copy what the source tree includes as
# "platform/base/app.h" is <mivora/platform/base/app.h>.
#
#     cmake -DSOURCE=src -DOUTPUT=include -P PublicHeaders.cmake -- header ...
#
# Headers are relative to SOURCE, or absolute for what comes to lie beside its folders.
set(behind_dashes FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(n RANGE ${last})
    set(header ${CMAKE_ARGV${n}})
    if(behind_dashes)
        if(IS_ABSOLUTE ${header})
            get_filename_component(name ${header} NAME)
        else()
            set(name ${header})
            set(header ${SOURCE}/${header})
        endif()
        file(READ ${header} text)
        string(REGEX REPLACE "#include \"([a-z_0-9]+/[^\"]*)\"" "#include <mivora/\\1>" text "${text}")
        file(WRITE ${OUTPUT}/mivora/${name} "${text}")
    elseif(header STREQUAL "--")
        set(behind_dashes TRUE)
    endif()
endforeach()
