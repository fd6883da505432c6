#include "platform/native/native_desktop.h"

#include <iostream>
#include <string>

namespace korvex::native {
namespace {

/// In one piece, so that it stays together when several threads report.
void Report(std::string line) {
    line += '\n';
    std::cerr.write(line.data(), static_cast<std::streamsize>(line.size()));
    std::cerr.flush();
}

}  // namespace

void NativeDesktop::ShowMessage(std::string_view text, std::int32_t, std::string_view title) {
    std::string line(title);
    if (!line.empty()) line += ": ";
    Report(line.append(text));
}

void NativeDesktop::OpenEditor(std::string_view path) { Report(std::string(path)); }

}  // namespace korvex::native
