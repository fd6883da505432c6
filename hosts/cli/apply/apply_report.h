#pragma once

#include "hosts/cli/apply/apply_plan.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace korvex::cli {

/// Counts what a run did.
class ApplyReport {
  public:
    /// One statement that ran.
    void Ran(const StatementSubject& subject, std::size_t count = 1);
    void SkippedRepeat() noexcept { ++m_repeats; }
    void SkippedProcedure() noexcept { ++m_procedures; }

    bool IsEmpty() const noexcept;
    /// Lines for a person; "nothing to do" for none.
    std::vector<std::string> Lines() const;

  private:
    std::array<std::size_t, StatementKindCount> m_ran{};
    std::size_t m_repeats = 0;
    std::size_t m_procedures = 0;
};

/// What a step is going to do, in one line: "FILE, line 12: create table T".
std::string PlanLine(const ApplyStep& step);

}  // namespace korvex::cli
