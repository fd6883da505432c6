#pragma once

#include "platform/native/sql/statement.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvex::native::sql {

/// Prepared statements that are not in use, by text. The same text may be in use several times at once, so a
/// text may have several. Bounded: what was used longest ago goes first.
class StatementCache {
  public:
    /// One text and its idle statements. Stays where it is while one of its statements is on loan.
    struct Bucket {
        std::string text;
        std::vector<std::unique_ptr<Statement>> idle;
        std::size_t onLoan = 0;
        std::list<Bucket>::iterator self;
    };

    /// The bucket of a text, made when there is none, now the one used last.
    Bucket& Find(std::string_view text);
    /// Takes an idle statement out, or gives a null pointer.
    std::unique_ptr<Statement> Take(Bucket& bucket);
    /// Counts a statement of the bucket as on loan without it coming from here.
    void Lend(Bucket& bucket) noexcept { ++bucket.onLoan; }
    /// Ends a loan; a null pointer when the statement is not worth keeping.
    void Give(Bucket& bucket, std::unique_ptr<Statement> statement) noexcept;
    /// Drops every idle statement.
    void Clear() noexcept { Trim(0); }

  private:
    void Trim(std::size_t most) noexcept;

    static constexpr std::size_t Limit = 256;

    std::size_t m_idleCount = 0;
    std::list<Bucket> m_buckets;  ///< used last in front
    std::unordered_map<std::string_view, std::list<Bucket>::iterator> m_byText;
};

}  // namespace korvex::native::sql
