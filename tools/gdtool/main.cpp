// gdtool: the definition workbench's headless face for definition authors and scripts.

#include <iostream>
#include <string>
#include <vector>

#include "Console.h"

namespace {

const char* const kUsage =
    "usage: gdtool COMMAND [ARGS...]\n"
    "\n"
    "Works on syntax definitions: <name>.gdx with its companion <name>.ini.\n"
    "\n"
    "commands:\n"
    "  check FILE.gdx...          show what each definition holds and its problems\n"
    "  resave IN.gdx [OUT.gdx]    read a definition and write it as the workbench saves it\n"
    "  convert OLD...             convert older definitions to current pairs\n"
    "  styles FILE.gdx [--dark]   show the style set the editor engine makes of a definition\n"
    "  tokens FILE --syntax DEF.gdx [--format text|json]\n"
    "                             show how the editor engine colours a file, line by line\n"
    "  test [--syntax DEF.gdx] FILE|DIR...\n"
    "                             run definition test files: assertions on the classes of columns\n"
    "  memo [FILE] [--script FILE|-] ...\n"
    "                             drive the editor engine's memo by a script, without a display\n"
    "  help [COMMAND]             show this text or a command's help\n"
    "\n"
    "Exit status: 0 fine, 1 problems found, 2 unusable input or arguments.\n";

int Help(const std::string& command) {
  if (command == "check") std::cout << gdtool::kCheckHelp;
  else if (command == "resave") std::cout << gdtool::kResaveHelp;
  else if (command == "convert") std::cout << gdtool::kConvertHelp;
  else if (command == "styles") std::cout << gdtool::kStylesHelp;
  else if (command == "tokens") std::cout << gdtool::kTokensHelp;
  else if (command == "test") std::cout << gdtool::kTestHelp;
  else if (command == "memo") std::cout << gdtool::kMemoHelp;
  else std::cout << kUsage;
  return gdtool::exOk;
}

} // namespace

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) {
    std::cerr << kUsage;
    return gdtool::exUnusable;
  }
  const std::string command = args.front();
  args.erase(args.begin());
  if (command == "help") return Help(args.empty() ? std::string() : args.front());
  if (command == "--help" || command == "-h") return Help("");
  if (command == "check") return gdtool::RunCheck(args, std::cout, std::cerr);
  if (command == "resave") return gdtool::RunResave(args, std::cout, std::cerr);
  if (command == "convert") return gdtool::RunConvert(args, std::cout, std::cerr);
  if (command == "styles") return gdtool::RunStyles(args, std::cout, std::cerr);
  if (command == "tokens") return gdtool::RunTokens(args, std::cout, std::cerr);
  if (command == "test") return gdtool::RunTest(args, std::cout, std::cerr);
  if (command == "memo") return gdtool::RunMemo(args, std::cout, std::cerr);
  std::cerr << "gdtool: unknown command '" << command << "'\n\n" << kUsage;
  return gdtool::exUnusable;
}
