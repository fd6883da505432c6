# Settings that every target of this project is compiled with.
set(KORVEX_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them (for example address,undefined)")

function(korvex_compile_settings target)
    target_compile_features(${target} PRIVATE cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF UNITY_BUILD_MODE GROUP)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Werror)
    if(WIN32)
        target_compile_definitions(${target} PRIVATE UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
    endif()
    # GCC 12 warns of an overlap inside std::string's own operator+ (GCC bug 105651).
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
    if(KORVEX_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${KORVEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${KORVEX_SANITIZE})
    endif()
endfunction()

# For targets whose time goes into what they call, such as hosts and tests: an optimised build compiles them lightly,
# in half the time.
function(korvex_compile_lightly target)
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
endfunction()

# In a unity build (CMAKE_UNITY_BUILD) the sources of a folder are compiled as one, in a fifth of the time; ALONE: all but
# these, which have names in common with others that are theirs alone.
function(korvex_unite target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "ALONE")
    get_target_property(sources ${target} SOURCES)
    get_target_property(folder ${target} SOURCE_DIR)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder} NORMALIZE OUTPUT_VARIABLE path)
        cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
        cmake_path(GET path PARENT_PATH group)
        string(MAKE_C_IDENTIFIER "${group}" group)
        if(NOT path IN_LIST arg_ALONE)
            set_source_files_properties(${source} TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${group})
        endif()
    endforeach()
    # GCC takes sources that are compiled as one for headers, in which a class should hold nothing of an unnamed namespace.
    target_compile_options(${target} PRIVATE
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wno-subobject-linkage>)
endfunction()
