#pragma once
// The assertion lines of a definition test file. A test file is a source file
// of the language under test; its assertion lines are comments of that
// language whose body starts with carets (or "<-") that point at columns of
// the nearest ordinary line above, followed by the classes the editor engine
// must give those columns.

#include <optional>
#include <string>
#include <vector>

#include "syntax/TokenRun.h"

namespace orl {
class TOrlCustomMemoStyles;
}

namespace gdtool {

/// The comment assertions are written in; `End` is empty for a line comment.
struct TAssertionComment {
  std::u16string Start, End;
};

/// The first mark of LineCommentA, else of LineCommentB, else block comment A;
/// none when the definition has no comment that the engine recognises.
std::optional<TAssertionComment> AssertionCommentOf(const orl::TOrlCustomMemoStyles& styles);

/// One class a column must have (or, negated, must not have).
struct TExpectation {
  orl::TRunClass Class = orl::rcText;
  std::u16string Group;  ///< empty: any group
  bool bNegated = false;

  /// "keyword.Types", "!comment".
  std::string Text() const;
  bool HeldBy(const orl::TRunName& actual) const;
};

struct TAssertion {
  int Line = 0;              ///< 0-based line of the assertion itself
  int Target = 0;            ///< 0-based line whose columns it tests
  std::vector<int> Columns;  ///< 1-based UTF-16 columns of Target, ascending
  std::vector<TExpectation> Expected;
};

/// A mistake in the test file itself, as opposed to a failed expectation.
struct TFormatError {
  int Line = 0;    ///< 0-based
  int Column = 1;  ///< 1-based
  std::string Message;
};

struct TParsedTest {
  std::vector<TAssertion> Assertions;
  std::vector<TFormatError> Errors;
};

/// Reads the assertions of `lines`; class groups are checked against the
/// keyword groups, tag groups and blocks of `styles`.
TParsedTest ParseAssertions(const std::vector<std::u16string>& lines, const TAssertionComment& comment,
                            const orl::TOrlCustomMemoStyles& styles);

/// "keyword.Types", or the bare class name for a run without group.
std::string RunNameText(const orl::TRunName& name);

} // namespace gdtool
