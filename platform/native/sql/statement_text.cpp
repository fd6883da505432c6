#include "platform/native/sql/statement_text.h"

#include "automation/sql_tokens.h"
#include "automation/sql_words.h"
#include "automation/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace korvex::native::sql {
namespace {

using namespace automation::sql;

StatementVerb VerbOfWord(std::string_view firstWord) noexcept {
    if (IsWord(firstWord, "select")) return StatementVerb::Select;
    if (IsWord(firstWord, "insert") || IsWord(firstWord, "replace")) return StatementVerb::Insert;
    if (IsWord(firstWord, "update")) return StatementVerb::Update;
    if (IsWord(firstWord, "delete")) return StatementVerb::Delete;
    static constexpr std::array<std::string_view, 4> Definitions = {"create", "drop", "alter", "rename"};
    return IsOneOf(firstWord, Definitions) ? StatementVerb::Definition : StatementVerb::Other;
}

constexpr bool IsComparison(std::string_view text) noexcept {
    if (text.size() == 1) return text != "!";
    return text == "<>" || text == "<=" || text == ">=" || text == "!=" || text == "==";
}

/// The words that end a WHERE clause or stand before it, and arrange or combine rows; literals behind them
/// stay, because a result column or an ordering must keep the text it has. No two begin with the same letter,
/// so that one look tells.
constexpr auto ArrangingWords = [] {
    std::array<std::string_view, 32> byLetter{};
    for (const std::string_view word : {"group", "order", "having", "limit", "union", "except", "intersect",
                                        "returning", "window", "fetch", "distinct"})
        byLetter[static_cast<std::size_t>(word[0]) % 32] = word;
    return byLetter;
}();

bool ArrangesRows(std::string_view word) noexcept {
    return IsWord(word, ArrangingWords[static_cast<std::size_t>(word[0]) % 32]);
}

class Scanner {
  public:
    Scanner(std::string_view text, const LexicalRules& rules, bool lift, StatementText& result)
        : m_text(text), m_rules(rules), m_mayLift(lift), m_result(result) {}

    void Run() {
        m_result.text.clear();
        m_result.literals.clear();
        m_result.kind = StatementVerb::Other;
        m_result.secondStatement = false;
        m_result.arrangesRows = false;
        m_result.placeholders = 0;
        while (m_at < m_text.size()) {
            if (ClassOf(m_text[m_at]) == CharClass::Plain) {
                ++m_at;
            } else {
                Step();
            }
        }
        m_result.text.append(m_text.substr(m_copied));
    }

    bool HasWhere() const noexcept { return m_hasWhere; }

    /// Tells what stands around the one literal, where another number there would be read in the same way.
    void Frame() const {
        m_result.isFramed =
            m_result.placeholders == 0 && m_result.literals.size() == 1 &&
            m_result.literals[0].Holds<std::int64_t>() && IsDigit(m_text[m_liftedAt]) &&
            !m_result.secondStatement &&
            (m_liftedEnd == m_text.size() || IsBlank(m_text[m_liftedEnd]) || m_text[m_liftedEnd] == ')');
        if (!m_result.isFramed) return;
        m_result.before = m_text.substr(0, m_liftedAt);
        m_result.behind = m_text.substr(m_liftedEnd);
    }

  private:
    static constexpr std::size_t NoComparison = static_cast<std::size_t>(-1);

    char Peek(std::size_t offset) const noexcept {
        return m_at + offset < m_text.size() ? m_text[m_at + offset] : '\0';
    }

    void Step() {
        const char c = m_text[m_at];
        switch (ClassOf(c)) {
            case CharClass::Letter:
                Word();
                break;
            case CharClass::Digit:
                Number();
                break;
            case CharClass::Quote:
                if (c != '\'') {
                    Quoted(c, m_rules.backslashEscapes && c != '`');
                } else if (!LiftText()) {
                    TextLiteral();
                }
                break;
            case CharClass::Bracket:
                if (m_rules.bracketNames) {
                    Quoted(']', false);
                } else {
                    ++m_at;
                }
                break;
            case CharClass::Compare:
                Comparison();
                break;
            case CharClass::Plain:
            case CharClass::Dash:
            case CharClass::Slash:
                m_at = std::max(m_at + 1, BehindComment(m_text, m_at));
                break;
            case CharClass::Open:
                ++m_depth;
                ++m_at;
                break;
            case CharClass::Close:
                --m_depth;
                ++m_at;
                break;
            case CharClass::Semicolon:
                Semicolon();
                break;
            case CharClass::Placeholder:
                ++m_result.placeholders;
                ++m_at;
                break;
            case CharClass::Dollar:
                Dollar();
                break;
        }
    }

    void Word() {
        const std::size_t start = m_at;
        m_at = BehindWord(m_text, start + 1);
        const std::string_view word = m_text.substr(start, m_at - start);
        if (!m_sawWord) {
            m_sawWord = true;
            m_result.kind = VerbOfWord(word);
            m_lifting = m_mayLift &&
                        (m_result.kind == StatementVerb::Update || m_result.kind == StatementVerb::Delete);
        } else if (IsWord(word, "like")) {
            if (m_rules.exactLike) Replace(start, "ILIKE");
            m_likeEnd = m_at;
        } else if (m_depth == 0 && word.size() >= 5) {
            if (ArrangesRows(word)) {
                m_lifting = false;
                m_result.arrangesRows = true;
            } else if (m_result.kind == StatementVerb::Select && IsWord(word, "where")) {
                m_hasWhere = true;
                m_lifting = m_mayLift;
            }
        }
        if (m_rules.dollarQuotes && word.size() == 1 && (word[0] == 'e' || word[0] == 'E') &&
            Peek(0) == '\'') {
            Quoted('\'', true);
        }
    }

    /// Skips to behind the closing quote. A doubled quote reads as two texts next to each other, to the same
    /// effect.
    void Quoted(char close, bool backslash) {
        ++m_at;
        if (!backslash) {
            const std::size_t end = m_text.find(close, m_at);
            m_at = end == std::string_view::npos ? m_text.size() : end + 1;
            return;
        }
        while (m_at < m_text.size() && m_text[m_at] != close)
            m_at += m_text[m_at] == '\\' ? 2 : 1;
        m_at = std::min(m_at + 1, m_text.size());
    }

    void TextLiteral() {
        const std::size_t start = m_at;
        Quoted('\'', m_rules.backslashEscapes && !m_rules.plainBackslashes);
        if (!m_rules.plainBackslashes) return;
        std::string text = AsMatched(m_text.substr(start, m_at - start), start);
        if (m_rules.backslashEscapes) DoubleBackslashes(text);
        if (text.size() > m_at - start) Replace(start, text);
    }

    /// A text whose quote stands at `start`, as LIKE has to get it there.
    std::string AsMatched(std::string_view value, std::size_t start) const {
        std::string text(value);
        if (m_rules.plainBackslashes && m_rules.likeEscapes && BeforeBlanks(start) == m_likeEnd)
            DoubleBackslashes(text);
        return text;
    }

    static void DoubleBackslashes(std::string& text) {
        for (std::size_t at = text.find('\\'); at != std::string::npos; at = text.find('\\', at + 2))
            text.insert(at, 1, '\\');
    }

    /// Replaces the text that begins here by "?" when it is all that is compared or matched with, and reads
    /// as it stands.
    bool LiftText() {
        if (!m_lifting || !m_rules.liftsTexts || m_result.kind != StatementVerb::Select) return false;
        const std::size_t before = BeforeBlanks(m_at);
        if (before != m_comparisonEnd && before != m_likeEnd) return false;
        const std::size_t start = m_at;
        const std::size_t end = m_text.find('\'', start + 1);
        if (end == std::string_view::npos || !EndsOperand(end + 1)) return false;
        const std::string_view value = m_text.substr(start + 1, end - start - 1);
        const bool escapes = m_rules.backslashEscapes && !m_rules.plainBackslashes;
        if (escapes && value.find('\\') != std::string_view::npos) return false;
        m_result.literals.emplace_back(AsMatched(value, start));
        m_at = end + 1;
        Replace(start, "?");
        return true;
    }

    /// Where the blanks in front of `at` begin.
    std::size_t BeforeBlanks(std::size_t at) const noexcept {
        while (at > 0 && IsBlank(m_text[at - 1]))
            --at;
        return at;
    }

    /// Gives `text` in place of what stands from `start` up to here.
    void Replace(std::size_t start, std::string_view text) {
        m_result.text.append(m_text.substr(m_copied, start - m_copied)).append(text);
        m_copied = m_at;
    }

    /// Whether a condition ends at `at`, or another one follows.
    bool EndsOperand(std::size_t at) const noexcept {
        at = BehindBlanks(m_text, at);
        if (at == m_text.size() || m_text[at] == ')') return true;
        const std::string_view word = m_text.substr(at, BehindWord(m_text, at) - at);
        return IsWord(word, "and") || IsWord(word, "or") || IsWord(word, "order");
    }

    void Dollar() {
        std::size_t tagEnd = m_at + 1;
        while (tagEnd < m_text.size() && ClassOf(m_text[tagEnd]) == CharClass::Letter)
            ++tagEnd;
        if (!m_rules.dollarQuotes || tagEnd >= m_text.size() || m_text[tagEnd] != '$') {
            ++m_at;
            return;
        }
        const std::string_view tag = m_text.substr(m_at, tagEnd + 1 - m_at);
        const std::size_t end = m_text.find(tag, tagEnd + 1);
        m_at = end == std::string_view::npos ? m_text.size() : end + tag.size();
    }

    void Comparison() {
        const std::size_t start = m_at;
        while (m_at < m_text.size() && ClassOf(m_text[m_at]) == CharClass::Compare)
            ++m_at;
        const bool partOfLonger =
            start > 0 && std::string_view("-@#~|&*+/%^").find(m_text[start - 1]) != std::string_view::npos;
        if (!partOfLonger && IsComparison(m_text.substr(start, m_at - start))) m_comparisonEnd = m_at;
    }

    void Number() {
        const std::size_t start = m_at;
        if (m_text[m_at] == '0' && (Peek(1) == 'x' || Peek(1) == 'X') && IsHexDigit(Peek(2))) {
            m_at += 2;
            while (m_at < m_text.size() && IsHexDigit(m_text[m_at]))
                ++m_at;
            return;
        }
        SkipDigits();
        bool whole = start == 0 || m_text[start - 1] != '.';
        if (Peek(0) == '.') {
            whole = false;
            ++m_at;
            SkipDigits();
        }
        const std::size_t exponentSign = Peek(1) == '+' || Peek(1) == '-' ? 1 : 0;
        if ((Peek(0) == 'e' || Peek(0) == 'E') && IsDigit(Peek(1 + exponentSign))) {
            m_at += 1 + exponentSign;
            SkipDigits();
            return;
        }
        if (whole) WholeNumber(start);
    }

    void SkipDigits() noexcept {
        while (m_at < m_text.size() && IsDigit(m_text[m_at]))
            ++m_at;
    }

    void WholeNumber(std::size_t start) {
        const char next = Peek(0);
        const bool touchesWord = ClassOf(next) == CharClass::Letter && next != '_';
        if (m_lifting && next != '_' && next != '$') Lift(start);
        if (touchesWord) Replace(m_at, " ");
    }

    /// Replaces the integer that ends here by "?" when it stands behind a comparison and fits 64 bits.
    void Lift(std::size_t start) {
        if (start > 0 && (m_text[start - 1] == '-' || m_text[start - 1] == '+')) --start;
        if (BeforeBlanks(start) != m_comparisonEnd) return;
        const std::size_t digits = m_text[start] == '+' ? start + 1 : start;
        std::int64_t value = 0;
        const auto [end, error] = std::from_chars(m_text.data() + digits, m_text.data() + m_at, value);
        if (error != std::errc() || end != m_text.data() + m_at) return;
        m_result.literals.emplace_back(value);
        m_liftedAt = start;
        m_liftedEnd = m_at;
        Replace(start, "?");
    }

    void Semicolon() {
        ++m_at;
        if (m_checkedSecond) return;
        m_checkedSecond = true;
        if (HoldsStatement(m_text.substr(m_at)) && !HoldsBody(m_text)) m_result.secondStatement = true;
    }

    std::string_view m_text;
    const LexicalRules& m_rules;
    bool m_mayLift;
    StatementText& m_result;
    std::size_t m_at = 0;
    std::size_t m_copied = 0;  ///< the text before this position is in the result
    std::size_t m_comparisonEnd = NoComparison;
    std::size_t m_likeEnd = NoComparison;
    std::size_t m_liftedAt = 0;  ///< the number lifted last
    std::size_t m_liftedEnd = 0;
    int m_depth = 0;
    bool m_sawWord = false;
    bool m_lifting = false;
    bool m_hasWhere = false;
    bool m_checkedSecond = false;
};

}  // namespace

bool HoldsStatement(std::string_view text) noexcept {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t behind = BehindComment(text, at);
        if (behind == at && !IsBlank(text[at]) && text[at] != ';') return true;
        at = std::max(at + 1, behind);
    }
    return false;
}

StatementVerb VerbOf(std::string_view text) noexcept {
    std::size_t at = 0;
    while (at < text.size() && ClassOf(text[at]) != CharClass::Letter) {
        at = std::max(at + 1, BehindComment(text, at));
    }
    return VerbOfWord(text.substr(at, BehindWord(text, at) - at));
}

bool StatementText::Repeats(std::string_view composed) {
    constexpr std::size_t mostDigits = 18;
    const std::size_t around = before.size() + behind.size();
    if (!isFramed || composed.size() <= around || composed.size() > around + mostDigits ||
        !composed.starts_with(before) || !composed.ends_with(behind))
        return false;
    std::int64_t value = 0;
    const char* end = composed.data() + composed.size() - behind.size();
    const auto read = std::from_chars(composed.data() + before.size(), end, value);
    if (read.ptr != end || value < 0) return false;
    literals.clear();
    literals.emplace_back(value);
    return true;
}

void ScanStatement(std::string_view composed, const LexicalRules& rules, StatementText& result) {
    result.text.reserve(composed.size() + 8);
    Scanner scanner(composed, rules, true, result);
    scanner.Run();
    scanner.Frame();
    if (result.placeholders > 0 && !result.literals.empty()) {
        // Values of ours would mix with the host's own.
        Scanner(composed, rules, false, result).Run();
    }
    result.wholeTable =
        result.kind == StatementVerb::Select && !scanner.HasWhere() && SoleTableOf(composed).isWhole;
}

SoleTable SoleTableOf(std::string_view text) noexcept {
    std::size_t at = 0;
    const auto takes = [&](std::string_view word) {
        const std::size_t start = BehindBlanks(text, at);
        at = BehindWord(text, start);
        return IsWord(text.substr(start, at - start), word);
    };
    if (!takes("select")) return {};
    at = BehindBlanks(text, at);
    if (text.substr(at++, 1) != "*" || !takes("from")) return {};
    const std::size_t start = BehindBlanks(text, at);
    at = std::min(text.find_first_of(" \t\r\n", start), text.size());
    const std::string_view name = text.substr(start, at - start);
    if (name.find_first_of(",;()'/?") != std::string_view::npos) return {};
    if (BehindBlanks(text, at) == text.size()) return {name, true};
    if (!takes("where")) return {};
    return {name, false};
}

}  // namespace korvex::native::sql
