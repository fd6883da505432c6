# Settings that every target of this project is compiled with.
set(KORVEX_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize takes them (for example address,undefined)")

function(korvex_compile_settings target)
    target_compile_features(${target} PRIVATE cxx_std_20)
    set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
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
