#pragma once

#include <cstdint>
#include <string_view>

namespace korvex::platform {

/// Message-box styles, as the automation runtime numbers them.
inline constexpr std::int32_t StyleOkOnly = 0;        ///< a text and a button
inline constexpr std::int32_t StyleExclamation = 48;  ///< a warning

/// Port to the person at the screen. Natively texts and paths go to standard error.
class Desktop {
  public:
    virtual ~Desktop() = default;
    /// Shows `text` and returns when it was seen. An empty title means the default one.
    virtual void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) = 0;
    /// Opens a text file in an editor and does not wait for it. May raise an automation::Error.
    virtual void OpenEditor(std::string_view path) = 0;
};

}  // namespace korvex::platform
