#pragma once

#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/seam.h"

#include <cstddef>
#include <string>
#include <vector>

namespace korvex::tests {

/// Records every engine call, counts the statements in use, and lets one call fail in the engine's place.
class TestSeam final : public native::sql::Seam {
  public:
    struct Call {
        native::sql::CallKind kind;
        std::string text;
        bool writes;
    };

    void BeforeCall(const native::sql::EngineCall& call) override {
        if (m_recording) m_calls.push_back({call.kind, std::string(call.text), call.writes});
        ++m_callCount;
        if (m_failAt != 0 && m_callCount == m_failAt) {
            m_failed = true;
            throw native::sql::EngineError(m_failure, "injected failure");
        }
    }
    void StatementOpened() override { ++m_openStatements; }
    void StatementClosed() noexcept override { --m_openStatements; }

    /// Lets the `n`-th call from now on fail (1 is the next one; 0 for none).
    void FailAt(std::size_t n, native::sql::ErrorKind failure = native::sql::ErrorKind::Other) {
        m_callCount = 0;
        m_failAt = n;
        m_failed = false;
        m_failure = failure;
    }
    /// Whether that call was reached.
    bool HasFailed() const noexcept { return m_failed; }
    /// Statements that somebody holds; 0 when nothing was left open.
    int OpenStatements() const noexcept { return m_openStatements; }

    void Record() {
        m_calls.clear();
        m_recording = true;
    }
    const std::vector<Call>& Calls() const noexcept { return m_calls; }
    /// The statements executed since Record, as they were composed.
    std::vector<std::string> Executed() const {
        std::vector<std::string> texts;
        for (const Call& call : m_calls) {
            if (call.kind == native::sql::CallKind::Execute) texts.push_back(call.text);
        }
        return texts;
    }

  private:
    std::vector<Call> m_calls;
    bool m_recording = false;
    std::size_t m_callCount = 0;
    std::size_t m_failAt = 0;
    bool m_failed = false;
    native::sql::ErrorKind m_failure = native::sql::ErrorKind::Other;
    int m_openStatements = 0;
};

}  // namespace korvex::tests
