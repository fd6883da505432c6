# Installs the library with its headers and a package that find_package(Korvex) finds: Korvex::korvex.
include(CMakePackageConfigHelpers)

install(TARGETS korvex EXPORT KorvexTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})

# The public header and what it includes, under korvex/: no other include root reaches a user's project.
install(CODE "set(KORVEX_SOURCES \"${CMAKE_CURRENT_SOURCE_DIR}\")
    set(KORVEX_INCLUDES \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR}\")")
install(SCRIPT cmake/InstallHeaders.cmake)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/Korvex)
install(EXPORT KorvexTargets NAMESPACE Korvex:: DESTINATION ${package_folder})
configure_package_config_file(cmake/KorvexConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/KorvexConfig.cmake
    INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/KorvexConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/KorvexConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/KorvexConfigVersion.cmake
    DESTINATION ${package_folder})
