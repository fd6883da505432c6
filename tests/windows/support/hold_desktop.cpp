// Uses the desktop and does nothing else for half an hour, or until it is ended.

#include <windows.h>

#include <cstdio>

int main() {
    if (GetDesktopWindow() == nullptr) return 1;
    std::puts("held");
    std::fflush(stdout);
    Sleep(30 * 60 * 1000);
    return 0;
}
