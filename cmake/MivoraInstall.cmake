# What `cmake --install` lays down: libraries, headers by layer, the CMake package, pkg-config.
include(CMakePackageConfigHelpers)

install(TARGETS mivora-platform mivora EXPORT MivoraTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The component "c" is a folder that can be moved: the library, its header, module and fonts.
set_target_properties(mivora-c PROPERTIES EXPORT_NAME c)
install(TARGETS mivora-c EXPORT MivoraTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT c
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT c
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT c)
install(FILES ${PROJECT_SOURCE_DIR}/include/mivora/mivora_c.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/mivora COMPONENT c EXCLUDE_FROM_ALL)
if(TARGET mivora-compound)
    install(TARGETS mivora-compound
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/mivora COMPONENT c EXCLUDE_FROM_ALL)
endif()
# Apart: only this one asks for the libraries that it is linked with.
install(TARGETS mivora-core EXPORT MivoraCoreTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_BINARY_DIR}/include/mivora DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(WIN32)
    install(FILES ${PROJECT_SOURCE_DIR}/src/control/win32/control.rc
                  ${PROJECT_SOURCE_DIR}/src/control/win32/resource.h
                  ${PROJECT_SOURCE_DIR}/src/control/win32/toolbar.bmp
            DESTINATION ${CMAKE_INSTALL_DATADIR}/mivora/resources)
    install(TARGETS mivora-resources EXPORT MivoraTargets)
endif()

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Mivora)
install(EXPORT MivoraTargets NAMESPACE Mivora:: DESTINATION ${package_dir})
install(EXPORT MivoraCoreTargets NAMESPACE Mivora:: DESTINATION ${package_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/MivoraConfig.cmake.in
    ${PROJECT_BINARY_DIR}/MivoraConfig.cmake INSTALL_DESTINATION ${package_dir}
    PATH_VARS CMAKE_INSTALL_DATADIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/MivoraConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/MivoraConfig.cmake ${PROJECT_BINARY_DIR}/MivoraConfigVersion.cmake
        DESTINATION ${package_dir})

# The package file finds the installation from its own place, so that it can be moved.
file(RELATIVE_PATH MIVORA_PREFIX_FROM_PC /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
if(WIN32)
    # By their whole names: found by hosts that link their own run-time library with -static, too.
    set(MIVORA_LINK_WORDS "-l:libmivora.dll.a -l:libmivora-platform.dll.a")
else()
    set(MIVORA_LINK_WORDS "-lmivora -lmivora-platform")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/mivora.pc.in ${PROJECT_BINARY_DIR}/mivora.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/mivora.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
