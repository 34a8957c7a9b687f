#pragma once
// A compiled Perl-compatible pattern over UTF-16 text.
//
// A pattern is compiled and JIT-compiled once, together with an anchored twin
// for callers that only want a match at one position (anchoring per match
// would bypass the JIT code). Offsets are UTF-16 units. A lone surrogate in
// the subject does not fail the match, and a match that exceeds its step
// limit reports an error instead of running away.

#include <memory>
#include <string>
#include <string_view>

namespace orl {

enum class TRegexStatus { rsMatch, rsNoMatch, rsError };

struct TRegexMatch {
  TRegexStatus Status = TRegexStatus::rsNoMatch;
  size_t Start = 0;      ///< offset of the match in the subject
  size_t Length = 0;     ///< matched units; 0 for an empty match
  std::u16string Error;  ///< the library's message when Status is rsError
  bool bLimitHit = false;  ///< the error is the step limit: more steps might have found a match

  bool Found() const { return Status == TRegexStatus::rsMatch; }
};

class TRegexPattern {
public:
  /// Upper bound of backtracking steps per match.
  static constexpr unsigned kMatchLimit = 1'000'000;

  /// Compiles `pattern`; null plus a message in `error` when it does not compile.
  static std::unique_ptr<TRegexPattern> Compile(std::u16string_view pattern, bool bCaseInsensitive,
                                                std::u16string& error);
  ~TRegexPattern();
  TRegexPattern(const TRegexPattern&) = delete;
  TRegexPattern& operator=(const TRegexPattern&) = delete;

  const std::u16string& Source() const { return FSource; }

  /// First match that starts at or after `start`, looking at the subject only
  /// up to `stop` (clamped to its length), in at most `steps` (up to kMatchLimit).
  TRegexMatch Find(std::u16string_view subject, size_t start, size_t stop, unsigned steps = kMatchLimit) const;
  /// A match that starts exactly at `start`, with the same stop rule.
  TRegexMatch MatchAt(std::u16string_view subject, size_t start, size_t stop, unsigned steps = kMatchLimit) const;

private:
  struct TCode;
  TRegexPattern(std::u16string source, std::unique_ptr<TCode> floating, std::unique_ptr<TCode> anchored);
  static TRegexMatch Run(const TCode& code, std::u16string_view subject, size_t start, size_t stop, unsigned steps);

  std::u16string FSource;
  std::unique_ptr<TCode> FFloating;
  std::unique_ptr<TCode> FAnchored;
};

} // namespace orl
