# What `make install` installs, and how outside programs find it: the CMake package Lumora and the pkg-config module zentalm.
# Both name their files relative to themselves, so an installed tree may be staged with DESTDIR or moved as a whole.
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Lumora)

target_compile_features(zentalm INTERFACE cxx_std_17)
target_include_directories(zentalm INTERFACE $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
install(TARGETS zentalm EXPORT Lumora LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(FILES ${lm_public_headers} ${PROJECT_BINARY_DIR}/include/Lm/LmAll.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Lm COMPONENT headers)
install(FILES ${lm_support_headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Lm/support COMPONENT headers)

install(EXPORT Lumora NAMESPACE Lumora:: FILE LumoraTargets.cmake DESTINATION ${package_folder})
configure_package_config_file(cmake/LumoraConfig.cmake.in ${PROJECT_BINARY_DIR}/LumoraConfig.cmake
    INSTALL_DESTINATION ${package_folder} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/LumoraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/LumoraConfig.cmake ${PROJECT_BINARY_DIR}/LumoraConfigVersion.cmake
    DESTINATION ${package_folder})

file(RELATIVE_PATH prefix_from_pkgconfig /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig ${prefix_from_pkgconfig})
configure_file(cmake/zentalm.pc.in ${PROJECT_BINARY_DIR}/zentalm.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zentalm.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

foreach(kind schemes icons help)
    file(GLOB files CONFIGURE_DEPENDS data/${kind}/*)
    install(FILES ${files} DESTINATION ${CMAKE_INSTALL_DATADIR}/lumora/${kind})
endforeach()

# Xt looks in /etc only for what Debian itself installs below /usr; everything else stays below its own prefix.
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(app_defaults_folder /etc/X11/app-defaults)
else()
    set(app_defaults_folder ${CMAKE_INSTALL_SYSCONFDIR}/X11/app-defaults)
endif()
file(GLOB app_defaults CONFIGURE_DEPENDS examples/*/app-defaults/*)
install(FILES ${app_defaults} DESTINATION ${app_defaults_folder})

# The examples as programs of a system; only packages want that.
if(LUMORA_INSTALL_EXAMPLES)
    set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)   # they find the library where the system has it
    foreach(example gallery diskview forkwindow)
        if(EXISTS ${PROJECT_SOURCE_DIR}/examples/${example})
            install(PROGRAMS $<TARGET_FILE:${example}> DESTINATION ${CMAKE_INSTALL_BINDIR} RENAME lumora-${example})
        endif()
    endforeach()
    file(GLOB entries CONFIGURE_DEPENDS examples/desktop/*.desktop)
    install(FILES ${entries} DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    file(GLOB icons CONFIGURE_DEPENDS examples/desktop/*.svg)
    install(FILES ${icons} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()
