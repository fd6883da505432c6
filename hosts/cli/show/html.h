#pragma once

#include "hosts/cli/show/render.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace korvex::cli {

/// The files of the page, which become part of the program when it is built.
extern const std::string_view PageParts;  ///< its markup in parts, each behind "<!-- part NAME -->"
extern const std::string_view PageStyle;
extern const std::string_view PageScript;

/// Finished markup: a text comes in by being escaped only.
class Html {
  public:
    Html() = default;
    /// Any text of a definition.
    Html(std::string_view text) : m_markup(MarkupText(text)) {}
    Html(const std::string& text) : Html(std::string_view(text)) {}
    Html(const char* text) : Html(std::string_view(text)) {}
    /// What is markup already.
    static Html Finished(std::string_view markup) {
        Html html;
        html.m_markup = markup;
        return html;
    }

    Html& operator+=(const Html& more) {
        m_markup += more.m_markup;
        return *this;
    }
    /// Adds one more of several, with `between` before all but the first.
    void Join(const Html& more, std::string_view between = "\n") {
        if (!m_markup.empty()) m_markup += between;
        m_markup += more.m_markup;
    }
    bool IsEmpty() const noexcept { return m_markup.empty(); }
    const std::string& Markup() const noexcept { return m_markup; }

  private:
    std::string m_markup;
};

/// A part of the page with what stands in the places that it names, {{name}}. Both must be known: a part or a
/// place without its like is a fault of the program (std::logic_error).
Html Fill(std::string_view part, std::initializer_list<std::pair<std::string_view, Html>> places = {});

}  // namespace korvex::cli
