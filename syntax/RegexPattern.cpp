#define PCRE2_CODE_UNIT_WIDTH 16
#include "syntax/RegexPattern.h"

#include <pcre2.h>

#include <algorithm>
#include <iterator>

namespace orl {

struct TRegexPattern::TCode {
  pcre2_code* Code = nullptr;
  ~TCode() { pcre2_code_free(Code); }
};

namespace {

std::u16string ErrorText(int errorCode) {
  char16_t buffer[256];
  const int len = pcre2_get_error_message(errorCode, reinterpret_cast<PCRE2_UCHAR*>(buffer), std::size(buffer));
  return len > 0 ? std::u16string(buffer, size_t(len)) : u"unknown regular-expression error";
}

// One per thread, since each match sets its own step limit in it.
pcre2_match_context* LimitedMatchContext(unsigned steps) {
  struct TOwner {
    pcre2_match_context* Context = pcre2_match_context_create(nullptr);
    ~TOwner() { pcre2_match_context_free(Context); }
  };
  thread_local TOwner owner;
  pcre2_set_match_limit(owner.Context, std::min(steps, TRegexPattern::kMatchLimit));
  return owner.Context;
}

// Only the whole match is read, so one offset pair per thread is enough.
pcre2_match_data* ThreadMatchData() {
  struct TOwner {
    pcre2_match_data* Data = pcre2_match_data_create(1, nullptr);
    ~TOwner() { pcre2_match_data_free(Data); }
  };
  thread_local TOwner owner;
  return owner.Data;
}

pcre2_code* CompileCode(std::u16string_view pattern, uint32_t options, std::u16string& error) {
  int errorCode = 0;
  PCRE2_SIZE errorOffset = 0;
  pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(pattern.data()), pattern.size(), options,
                                   &errorCode, &errorOffset, nullptr);
  if (!code) {
    const std::string offset = std::to_string(errorOffset);
    error = ErrorText(errorCode) + u" at offset " + std::u16string(offset.begin(), offset.end());
    return nullptr;
  }
  // Without JIT support the interpreter runs the same code, only slower.
  pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
  return code;
}

} // namespace

TRegexPattern::TRegexPattern(std::u16string source, std::unique_ptr<TCode> floating, std::unique_ptr<TCode> anchored)
    : FSource(std::move(source)), FFloating(std::move(floating)), FAnchored(std::move(anchored)) {}

TRegexPattern::~TRegexPattern() = default;

std::unique_ptr<TRegexPattern> TRegexPattern::Compile(std::u16string_view pattern, bool bCaseInsensitive,
                                                      std::u16string& error) {
  uint32_t options = PCRE2_UTF | PCRE2_MATCH_INVALID_UTF;
  if (bCaseInsensitive) options |= PCRE2_CASELESS;
  auto floating = std::make_unique<TCode>();
  floating->Code = CompileCode(pattern, options, error);
  if (!floating->Code) return nullptr;
  auto anchored = std::make_unique<TCode>();
  // Without start optimisations: they search the rest of the subject for a
  // required character on every call, which a match at one position never needs.
  anchored->Code = CompileCode(pattern, options | PCRE2_ANCHORED | PCRE2_NO_START_OPTIMIZE, error);
  if (!anchored->Code) return nullptr;
  return std::unique_ptr<TRegexPattern>(
      new TRegexPattern(std::u16string(pattern), std::move(floating), std::move(anchored)));
}

TRegexMatch TRegexPattern::Find(std::u16string_view subject, size_t start, size_t stop, unsigned steps) const {
  return Run(*FFloating, subject, start, stop, steps);
}

TRegexMatch TRegexPattern::MatchAt(std::u16string_view subject, size_t start, size_t stop, unsigned steps) const {
  return Run(*FAnchored, subject, start, stop, steps);
}

TRegexMatch TRegexPattern::Run(const TCode& code, std::u16string_view subject, size_t start, size_t stop,
                               unsigned steps) {
  TRegexMatch result;
  const size_t end = std::min(stop, subject.size());
  if (start > end) return result;
  pcre2_match_data* data = ThreadMatchData();
  const int rc = pcre2_match(code.Code, reinterpret_cast<PCRE2_SPTR>(subject.data()), end, start, 0, data,
                             LimitedMatchContext(steps));
  if (rc == PCRE2_ERROR_NOMATCH) return result;
  if (rc < 0) {
    result.Status = TRegexStatus::rsError;
    result.Error = ErrorText(rc);
    result.bLimitHit = rc == PCRE2_ERROR_MATCHLIMIT;
    return result;
  }
  const PCRE2_SIZE* ovector = pcre2_get_ovector_pointer(data);
  result.Status = TRegexStatus::rsMatch;
  result.Start = ovector[0];
  result.Length = ovector[1] - ovector[0];
  return result;
}

} // namespace orl
