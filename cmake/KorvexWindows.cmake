# The Windows build of the library. The rooms that include Windows' headers have their objects in a target of their own, so
# that those are read once for all of them, and reach no other room. (The native build does without precompiled headers:
# it finds what a source forgot to include.)
set(KORVEX_PRECOMPILED <algorithm> <array> <cstdint> <deque> <functional> <map> <memory> <optional> <span> <string>
    <string_view> <unordered_map> <utility> <variant> <vector>)
set(KORVEX_PRECOMPILED_WINDOWS ${KORVEX_PRECOMPILED} <windows.h> <oaidl.h> <oleauto.h>)
target_precompile_headers(korvex PRIVATE ${KORVEX_PRECOMPILED})
set_target_properties(korvex PROPERTIES UNITY_BUILD ON)

add_library(korvex_windows OBJECT)
korvex_compile_settings(korvex_windows)
target_include_directories(korvex_windows PRIVATE ${PROJECT_SOURCE_DIR})
target_precompile_headers(korvex_windows PRIVATE ${KORVEX_PRECOMPILED_WINDOWS})
target_sources(korvex PRIVATE $<TARGET_OBJECTS:korvex_windows>)
