# What a host compiles with: headers below <mivora/...>, and C++20.

# The folders of one backend hold no public header but those of control and menu, capi has none, and
# each system has some of its own.
file(GLOB_RECURSE public_headers RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.h)
if(WIN32)
    set(not_here "(^|/)(linux|win32)/|cairo_dc.h$|^capi/")
else()
    set(not_here "(^|/)(linux|win32)/|windows_names.h$|^(platform/win|menu|capi)/")
endif()
list(FILTER public_headers EXCLUDE REGEX ${not_here})
if(WIN32)
    list(APPEND public_headers control/win32/formula_ctrl.h control/win32/formula_drop_target.h
        control/win32/resource.h menu/win32/menu_icons.h menu/win32/menu_item_data.h
        menu/win32/new_frame.h menu/win32/new_menu.h)
endif()
set(umbrella ${PROJECT_SOURCE_DIR}/include/mivora/mivora.h
    ${PROJECT_SOURCE_DIR}/include/mivora/mivora_c.h)

set(public_stamp ${PROJECT_BINARY_DIR}/include/public-headers)
set(public_script ${PROJECT_SOURCE_DIR}/cmake/PublicHeaders.cmake)
add_custom_command(OUTPUT ${public_stamp}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${PROJECT_BINARY_DIR}/include/mivora
    COMMAND ${CMAKE_COMMAND} -DSOURCE=${CMAKE_CURRENT_SOURCE_DIR}
        -DOUTPUT=${PROJECT_BINARY_DIR}/include -P ${public_script} -- ${public_headers} ${umbrella}
    COMMAND ${CMAKE_COMMAND} -E touch ${public_stamp}
    DEPENDS ${public_headers} ${umbrella} ${public_script} VERBATIM)
add_custom_target(public-headers ALL DEPENDS ${public_stamp})

# This project's own hosts compile with the sources themselves, under both names: other headers of
# the same folders stand beside them.
if(PROJECT_IS_TOP_LEVEL)
    set(build_include ${PROJECT_BINARY_DIR}/source_names ${PROJECT_SOURCE_DIR}/include
        ${CMAKE_CURRENT_SOURCE_DIR})
    file(GLOB rooms LIST_DIRECTORIES TRUE ${CMAKE_CURRENT_SOURCE_DIR}/*)
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/source_names/mivora)
    foreach(room ${rooms} ${umbrella})
        get_filename_component(name ${room} NAME)
        file(CREATE_LINK ${room} ${PROJECT_BINARY_DIR}/source_names/mivora/${name} SYMBOLIC)
    endforeach()
else()
    set(build_include ${PROJECT_BINARY_DIR}/include)
endif()

function(mivora_public_interface library)
    target_include_directories(${library} PUBLIC "$<BUILD_INTERFACE:${build_include}>"
                                                 $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    target_compile_features(${library} PUBLIC cxx_std_20)
    add_dependencies(${library} public-headers)
endfunction()
