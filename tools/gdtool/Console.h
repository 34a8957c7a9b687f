#pragma once
// Output and argument helpers shared by the commands of gdtool.

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace gdtool {

/// UTF-16 text as the terminal's UTF-8.
std::string Out(std::u16string_view text);

/// UTF-16 text as a JSON string, quotes included.
std::string JsonString(std::u16string_view text);

/// Exit codes of every command.
enum TExit { exOk = 0, exProblems = 1, exUnusable = 2 };

/// True when `args` asks for help.
bool WantsHelp(const std::vector<std::string>& args);

/// Reads `in` as the workbench opens it, converting a file in the older
/// layout, and writes `out` as the workbench saves it, with its version entry
/// (see resave's help for `host`). True when `in` was converted. Raises EOrlError.
bool ResaveDefinition(const std::filesystem::path& in, const std::filesystem::path& out,
                      const std::filesystem::path& host);

int RunCheck(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int RunResave(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int RunConvert(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int RunStyles(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int RunTokens(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
int RunTest(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

extern const char* const kCheckHelp;
extern const char* const kResaveHelp;
extern const char* const kConvertHelp;
extern const char* const kStylesHelp;
extern const char* const kTokensHelp;
extern const char* const kTestHelp;

int RunMemo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
extern const char* const kMemoHelp;

} // namespace gdtool
