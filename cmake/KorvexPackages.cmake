# The Debian packages, made by CPack: korvex (the command), libkorvex-dev (the static library), python3-korvex (the module).
# What is installed says by its COMPONENT where it belongs: cli, dev (where none is named) or python.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "Korvex developers <developers@korvex.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # each package has its own
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL "")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# The changelog, and the one of the packaging, whose date is SOURCE_DATE_EPOCH where that is set.
set(changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
file(COPY_FILE CHANGELOG.md ${changelog})
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${changelog}.Debian "korvex (${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Packages of the command, the library and the Python module.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
execute_process(COMMAND gzip -9nf ${changelog} ${changelog}.Debian COMMAND_ERROR_IS_FATAL ANY)

# korvex_package(COMPONENT NAME SECTION WHAT DESCRIPTION): the package that COMPONENT becomes.
macro(korvex_package component name section what description)
    string(TOUPPER ${component} key)
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name})
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${key}_DESCRIPTION "schema scripts and object persistence (${what})\n${description}")
    install(FILES cmake/debian/copyright ${changelog}.gz ${changelog}.Debian.gz DESTINATION share/doc/${name}
        COMPONENT ${component})
endmacro()

korvex_package(dev libkorvex-dev libdevel "development files"
    "Korvex writes the SQL scripts of the database that stores business objects,
and loads and stores these objects. This package holds the static library,
its headers, and what CMake and pkg-config have to know of them.")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "libsqlite3-dev, unixodbc-dev")
if(LIBMDB_FOUND)
    string(APPEND CPACK_DEBIAN_DEV_PACKAGE_DEPENDS ", mdbtools-dev, libglib2.0-dev")
endif()

if(TARGET korvex_cli)
    korvex_package(cli korvex database "command"
        "The korvex command keeps definitions of business objects in a repository,
writes the SQL scripts of the database that stores them, changes that
database along with its definition, and loads, finds, saves, updates and
deletes the objects.")
    set(CPACK_DEBIAN_CLI_PACKAGE_SUGGESTS "graphviz, libsqliteodbc, odbc-mariadb, odbc-postgresql")
    install(FILES README.md DESTINATION share/doc/korvex COMPONENT cli)
    install(DIRECTORY docs examples DESTINATION share/doc/korvex COMPONENT cli PATTERN windows EXCLUDE PATTERN api EXCLUDE)
endif()

if(TARGET korvex_python)
    korvex_package(python python3-korvex python "Python module"
        "import korvex gives Python programs the classes of Korvex: schema scripts
from a definition repository, and business objects that are loaded from and
stored in the databases made from them.")
    math(EXPR next_minor "${KORVEX_PYTHON_MINOR} + 1")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS "python3 (>= 3.${KORVEX_PYTHON_MINOR}), python3 (<< 3.${next_minor})")
    set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
        ${CMAKE_CURRENT_SOURCE_DIR}/cmake/debian/postinst ${CMAKE_CURRENT_SOURCE_DIR}/cmake/debian/prerm)
endif()

include(CPack)
