#pragma once

#include "platform/desktop.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvex::tests {

/// A desktop that keeps what it is told to show.
class MessageLog final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) override {
        messages.emplace_back(text);
        if (style != platform::StyleOkOnly || !title.empty()) messages.back() += " (style or title set)";
    }
    void OpenEditor(std::string_view path) override { messages.emplace_back(path); }

    std::vector<std::string> messages;
};

}  // namespace korvex::tests
