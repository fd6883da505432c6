#pragma once

#include "platform/files.h"

namespace korvex::native {

class NativeFiles final : public platform::Files {
  public:
    void WriteText(std::string_view path, std::string_view text, std::string_view lineEnd) override;
    std::string LibraryFolder() override;
    char Separator() const noexcept override { return '/'; }
};

}  // namespace korvex::native
