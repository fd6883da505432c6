# Installs the library with its headers and a package that find_package(Korvex) finds: Korvex::korvex;
# pkg-config finds it as korvex.
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

# The same for pkg-config. A static library has no other form: its engines are named without --static, too.
set(private_libraries sqlite3 odbc odbcinst ${LIBMDB_LIBRARIES} ${CMAKE_DL_LIBS})
list(TRANSFORM private_libraries PREPEND -l)
list(JOIN private_libraries " " private_libraries)
get_target_property(type korvex TYPE)
if(type STREQUAL "STATIC_LIBRARY")
    set(public_libraries "${private_libraries}")
    set(private_libraries "")
endif()
set(prefix @CMAKE_INSTALL_PREFIX@)  # known when it is installed
configure_file(cmake/korvex.pc.in ${CMAKE_CURRENT_BINARY_DIR}/korvex.pc @ONLY)
install(CODE "configure_file(\"${CMAKE_CURRENT_BINARY_DIR}/korvex.pc\"
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig/korvex.pc\" @ONLY)")
