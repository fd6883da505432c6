#pragma once

#include "platform/desktop.h"

namespace korvex::native {

/// Where there is no desktop: messages and the paths of files to look at go to standard error.
class NativeDesktop final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) override;
    void OpenEditor(std::string_view path) override;
};

}  // namespace korvex::native
