// What a host includes, and that no other name of it is found.

#include <korvex/korvex.h>

#if __has_include("automation/variant.h") || __has_include("variant.h") || \
                                                           !__has_include("korvex/automation/variant.h")
#error "headers are found by korvex/ and their room, and by no shorter name"
#endif
