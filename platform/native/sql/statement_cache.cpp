#include "platform/native/sql/statement_cache.h"

namespace korvex::native::sql {

StatementCache::Bucket& StatementCache::Find(std::string_view text) {
    // Many records in a row are looked up by the same statement.
    if (!m_buckets.empty() && m_buckets.front().text == text) return m_buckets.front();
    if (const auto found = m_byText.find(text); found != m_byText.end()) {
        m_buckets.splice(m_buckets.begin(), m_buckets, found->second);
        return m_buckets.front();
    }
    m_buckets.push_front({.text = std::string(text), .idle = {}, .self = {}});
    m_buckets.front().self = m_buckets.begin();
    m_byText.emplace(m_buckets.front().text, m_buckets.begin());
    return m_buckets.front();
}

std::unique_ptr<Statement> StatementCache::Take(Bucket& bucket) {
    if (bucket.idle.empty()) return nullptr;
    std::unique_ptr<Statement> statement = std::move(bucket.idle.back());
    bucket.idle.pop_back();
    --m_idleCount;
    ++bucket.onLoan;
    return statement;
}

void StatementCache::Give(Bucket& bucket, std::unique_ptr<Statement> statement) noexcept {
    --bucket.onLoan;
    if (statement) {
        bucket.idle.push_back(std::move(statement));
        ++m_idleCount;
        Trim(Limit);
    } else if (bucket.onLoan == 0 && bucket.idle.empty()) {
        m_byText.erase(bucket.text);
        m_buckets.erase(bucket.self);
    }
}

/// Drops what was used longest ago until no more than `most` are left; buckets on loan stay, empty of idle
/// statements.
void StatementCache::Trim(std::size_t most) noexcept {
    for (auto bucket = m_buckets.end(); m_idleCount > most && bucket != m_buckets.begin();) {
        --bucket;
        m_idleCount -= bucket->idle.size();
        bucket->idle.clear();
        if (bucket->onLoan > 0) continue;
        m_byText.erase(bucket->text);
        bucket = m_buckets.erase(bucket);
    }
}

}  // namespace korvex::native::sql
