#pragma once

#include "automation/error.h"
#include "platform/ado.h"

#include <memory>
#include <optional>

/// The persistence members answer some of the engine's failures with a code, or pass over them. A provider
/// around the real one remembers these failures, so that a person can be told the engine's reason.
namespace korvex::cli {

class FailureLog {
  public:
    /// A recordset that did not open; the first one. Whatever was to be done with its table was not done.
    const std::optional<automation::Error>& Opening() const noexcept { return m_opening; }
    /// The last failure of any kind.
    const std::optional<automation::Error>& Last() const noexcept { return m_last; }

    void Opening(const automation::Error& error) {
        if (!m_opening) m_opening = error;
        m_last = error;
    }
    void Note(const automation::Error& error) { m_last = error; }

  private:
    std::optional<automation::Error> m_opening;
    std::optional<automation::Error> m_last;
};

std::shared_ptr<ado::Provider> WatchProvider(std::shared_ptr<ado::Provider> provider,
                                             std::shared_ptr<FailureLog> log);

}  // namespace korvex::cli
