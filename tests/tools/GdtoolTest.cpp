#include <gtest/gtest.h>

#include <unistd.h>

#include <map>

#include "BundledDefinitions.h"
#include "GdtoolRun.h"
#include "TempFolder.h"
#include "platform/CodePages.h"
#include "BuildPaths.h"

namespace fs = std::filesystem;
using orl::test::Gdtool;
using orl::test::Quoted;
using orl::test::ReadBytes;
using orl::test::TRun;

namespace {

/// gdtool run by a user who is bound by file permissions: root reads and writes anything.
TRun GdtoolUnprivileged(const std::string& args) {
  return orl::test::Run((::geteuid() == 0 ? "setpriv --reuid=65534 --regid=65534 --clear-groups " : "") + Quoted(orl::test::GdtoolPath().string()) +
             " " + args + " 2>&1");
}

/// Lets the unprivileged user into `dir`, with `write` also to create files there.
void OpenTo(const fs::path& dir, bool write) {
  const fs::perms all = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                        fs::perms::others_read | fs::perms::others_exec;
  fs::permissions(dir, write ? all | fs::perms::group_write | fs::perms::others_write : all);
}

std::vector<fs::path> BundledDefinitions() { return orl::test::BundledDefinitions(orl::test::HostDir()); }

} // namespace

TEST(Gdtool, BundledDefinitionsCheckCleanAndAreAlreadyInSavedForm) {
  const auto files = BundledDefinitions();
  ASSERT_GE(files.size(), 10u);
  orl::test::TTempFolder dir;
  for (const fs::path& file : files) {
    const TRun check = Gdtool("check " + Quoted(file.string()));
    EXPECT_EQ(check.Status, 0) << check.Output;
    EXPECT_NE(check.Output.find("problems: none"), std::string::npos) << check.Output;

    const fs::path out = dir / file.filename().string();
    ASSERT_EQ(Gdtool("resave " + Quoted(file.string()) + " " + Quoted(out.string())).Status, 0);
    EXPECT_EQ(ReadBytes(out), ReadBytes(file)) << file;
    EXPECT_EQ(ReadBytes(fs::path(out).replace_extension(".ini")), ReadBytes(fs::path(file).replace_extension(".ini")))
        << file;
  }
}

TEST(Gdtool, SecondResaveIsByteIdenticalAndVersionEntriesTravel) {
  orl::test::TTempFolder dir;
  orl::test::WriteBytes(dir / "_list.ver", orl::EncodeUtf16LE(u"[Mine]\r\nAuthor=Someone\r\nVersion=7\r\n", true));
  orl::test::WriteBytes(dir / "Mine.gdx", ";{}\r\n; comment\r\n[Options]\r\nLineCommentA=#\r\nCase=1\r\n"
                                          "[Block]\r\n1_Name=Str\r\n\r\n[Foreign]\r\nx= kept \r\n");
  orl::test::WriteBytes(dir / "Mine.ini", "[Comment]\r\n1=one\r\n2=two\r\n");
  ASSERT_EQ(Gdtool("resave " + Quoted((dir / "Mine.gdx").string())).Status, 0);
  const std::string first = ReadBytes(dir / "Mine.gdx");
  ASSERT_EQ(Gdtool("resave " + Quoted((dir / "Mine.gdx").string())).Status, 0);
  EXPECT_EQ(ReadBytes(dir / "Mine.gdx"), first);
  EXPECT_NE(first.find(std::string("x\0=\0 \0k\0e\0p\0t\0 \0", 16)), std::string::npos);

  fs::create_directories(dir / "copy");
  orl::test::WriteBytes(dir / "copy" / "_list.ver", "");
  ASSERT_EQ(Gdtool("resave " + Quoted((dir / "Mine.gdx").string()) + " " + Quoted((dir / "copy" / "Copy.gdx").string()))
                .Status,
            0);
  const std::string list = ReadBytes(dir / "copy" / "_list.ver");
  EXPECT_NE(list.find(std::string("S\0o\0m\0e\0o\0n\0e\0", 14)), std::string::npos);
  EXPECT_NE(list.find(std::string("2\0000\0001\0000\0", 8)), std::string::npos);  // loading date default
}

TEST(Gdtool, BadInputGivesOneLineErrorsAndStatusTwo) {
  orl::test::TTempFolder dir;
  TRun missing = Gdtool("check " + Quoted((dir / "none.gdx").string()));
  EXPECT_EQ(missing.Status, 2);
  EXPECT_EQ(std::count(missing.Output.begin(), missing.Output.end(), '\n'), 2) << missing.Output;
  EXPECT_NE(missing.Output.find("none.gdx"), std::string::npos);
  EXPECT_EQ(Gdtool("resave " + Quoted(dir.Path().string())).Status, 2);
  EXPECT_EQ(Gdtool("frobnicate").Status, 2);
  EXPECT_EQ(Gdtool("check").Status, 2);
  for (const char* args : {"convert", "convert --out-dir", "convert --frob x.gdx"}) EXPECT_EQ(Gdtool(args).Status, 2);
  for (const char* help : {"--help", "help resave", "check --help", "resave --help", "help convert", "convert -h"}) {
    TRun h = Gdtool(help);
    EXPECT_EQ(h.Status, 0);
    EXPECT_NE(h.Output.find("usage: gdtool"), std::string::npos);
  }
}

TEST(Gdtool, ResaveConvertsAnOlderDefinitionAsTheWorkbenchOpensIt) {
  orl::test::TTempFolder dir;
  orl::test::WriteBytes(dir / "Old.gdx", "[keywords]\r\n>K\r\nbegin\r\n[end]\r\n");
  TRun old = Gdtool("resave " + Quoted((dir / "Old.gdx").string()));
  EXPECT_EQ(old.Status, 0) << old.Output;
  EXPECT_NE(old.Output.find("converted from the older layout"), std::string::npos);
  const std::string saved = ReadBytes(dir / "Old.gdx");
  EXPECT_EQ(saved.substr(0, 2), "\xFF\xFE");
  EXPECT_NE(saved.find(std::string("K\0=\0b\0e\0g\0i\0n\0|\0", 16)), std::string::npos);
}

TEST(Gdtool, ConvertWritesTheReferencePairsAndKeepsTheOriginal) {
  const fs::path data = orl::test::TestsDataDir() / "legacy";
  const std::vector<std::string> names = {"options.gdx", "groups.gdx", "menus.gdx", "plain.gdx"};
  orl::test::TTempFolder dir;
  std::string files;
  for (const std::string& name : names) files += " " + Quoted((data / name).string());
  const TRun bulk = Gdtool("convert" + files + " --out-dir " + Quoted((dir / "out").string()));
  EXPECT_EQ(bulk.Status, 0) << bulk.Output;
  EXPECT_EQ(std::count(bulk.Output.begin(), bulk.Output.end(), '\n'), 4) << bulk.Output;
  for (const std::string& name : names) {
    const fs::path ini = fs::path(name).replace_extension(".ini");
    EXPECT_EQ(ReadBytes(dir / "out" / name), ReadBytes(data / "expected" / name)) << name;
    EXPECT_EQ(ReadBytes(dir / "out" / ini), ReadBytes(data / "expected" / ini)) << name;
  }

  const fs::path menus = dir / "menus.gdx";
  fs::copy_file(data / "menus.gdx", menus);
  const std::string original = ReadBytes(menus);
  const TRun first = Gdtool("convert " + Quoted(menus.string()));
  EXPECT_EQ(first.Status, 0) << first.Output;
  EXPECT_NE(first.Output.find("kept as"), std::string::npos) << first.Output;
  EXPECT_EQ(ReadBytes(dir / "menus.gdx.old"), original);
  EXPECT_EQ(ReadBytes(menus), ReadBytes(data / "expected" / "menus.gdx"));

  const TRun again = Gdtool("convert " + Quoted(menus.string()));
  EXPECT_EQ(again.Status, 0);
  EXPECT_EQ(again.Output.rfind("current ", 0), 0u) << again.Output;
  const TRun forced = Gdtool("convert --force " + Quoted(menus.string()));
  EXPECT_EQ(forced.Status, 0);
  EXPECT_EQ(forced.Output.rfind("resaved ", 0), 0u) << forced.Output;
  EXPECT_EQ(ReadBytes(dir / "menus.gdx.old"), original);
  EXPECT_EQ(ReadBytes(menus), ReadBytes(data / "expected" / "menus.gdx"));
}

TEST(Gdtool, ConvertFailsAFileRatherThanOverwriteWhatIsInTheWay) {
  orl::test::TTempFolder dir;
  const std::string older = "[tags]\r\n>T\r\nx\r\n[end]\r\n";
  for (const char* name : {"a.txt", "a.syn", "b.gdx", "b.gdx.old"}) orl::test::WriteBytes(dir / name, older);
  const auto args = [&](std::initializer_list<const char*> names) {
    std::string joined;
    for (const char* name : names) joined += " " + Quoted((dir / name).string());
    return joined;
  };
  const TRun run = Gdtool("convert" + args({"a.txt", "a.syn", "b.gdx", "none.gdx"}));
  EXPECT_EQ(run.Status, 1) << run.Output;
  EXPECT_EQ(std::count(run.Output.begin(), run.Output.end(), '\n'), 4) << run.Output;
  EXPECT_EQ(run.Output.rfind("converted ", 0), 0u) << run.Output;
  EXPECT_NE(run.Output.find("a.gdx exists"), std::string::npos) << run.Output;
  EXPECT_NE(run.Output.find("b.gdx.old exists"), std::string::npos) << run.Output;
  EXPECT_NE(run.Output.find("failed " + (dir / "none.gdx").string()), std::string::npos) << run.Output;
  EXPECT_EQ(ReadBytes(dir / "b.gdx"), older);

  const TRun forced = Gdtool("convert --force" + args({"a.syn", "b.gdx"}));
  EXPECT_EQ(forced.Status, 0) << forced.Output;
  EXPECT_EQ(ReadBytes(dir / "b.gdx.old"), older);
  EXPECT_EQ(ReadBytes(dir / "b.gdx").substr(0, 2), "\xFF\xFE");
}

TEST(Gdtool, StylesShowWhatTheEngineMakesOfADefinition) {
  const TRun cpp = Gdtool("styles " + Quoted((orl::test::HostDir() / "syntax" / "C++.gdx").string()));
  EXPECT_EQ(cpp.Status, 0) << cpp.Output;
  EXPECT_NE(cpp.Output.find("#Preprocessor: regular expression, colour #"), std::string::npos) << cpp.Output;
  EXPECT_NE(cpp.Output.find("comments: line '//'"), std::string::npos);

  orl::test::TTempFolder dir;
  orl::test::WriteBytes(dir / "Bad.gdx", ";{}\r\n\r\n[Keywords]\r\n#Broken=([a-\r\nWords=a|b|\r\n\r\n");
  const TRun bad = Gdtool("styles " + Quoted((dir / "Bad.gdx").string()) + " --dark");
  EXPECT_EQ(bad.Status, 1) << bad.Output;
  EXPECT_NE(bad.Output.find("#Broken: regular expression (never matches)"), std::string::npos) << bad.Output;
  EXPECT_NE(bad.Output.find("problem: "), std::string::npos);
  EXPECT_EQ(Gdtool("styles " + Quoted((dir / "none.gdx").string())).Status, 2);
}

TEST(Gdtool, TokensOfEachBundledSampleMatchTheReviewedOutput) {
  const std::map<std::string, std::string> definitionOf = {
      {".cpp", "C++"}, {".css", "CSS"}, {".html", "HTML"}, {".ini", "INI"}, {".js", "JavaScript"},
      {".php", "PHP"}, {".pas", "Pascal"}, {".py", "Python"}, {".sql", "SQL"}, {".xml", "XML"}};
  const fs::path data = orl::test::TestsDataDir() / "tokens";
  for (const auto& [extension, definition] : definitionOf) {
    const fs::path sample = data / ("sample" + extension);
    const fs::path gdx = orl::test::HostDir() / "syntax" / (definition + ".gdx");
    const TRun run = Gdtool("tokens " + Quoted(sample.string()) + " --syntax " + Quoted(gdx.string()) + " --format json");
    EXPECT_EQ(run.Status, 0) << run.Output;
    EXPECT_EQ(run.Output, ReadBytes(fs::path(sample).concat(".json"))) << sample;
  }
}

TEST(Gdtool, TokensReadsEveryTextCodingAndRejectsBadInput) {
  orl::test::TTempFolder dir;
  const std::string cpp = Quoted((orl::test::HostDir() / "syntax" / "C++.gdx").string());
  const std::u16string text = u"int x; // \u00e9\nreturn 0x1F;";
  orl::test::WriteBytes(dir / "utf16.cpp", orl::EncodeUtf16LE(text, true));
  orl::test::WriteBytes(dir / "utf8bom.cpp", "\xEF\xBB\xBF" + orl::Utf16ToUtf8(text));
  orl::test::WriteBytes(dir / "utf8.cpp", orl::Utf16ToUtf8(text));
  std::string first;
  for (const char* name : {"utf16.cpp", "utf8bom.cpp", "utf8.cpp"}) {
    const TRun run = Gdtool("tokens " + Quoted((dir / name).string()) + " --syntax " + cpp);
    EXPECT_EQ(run.Status, 0) << run.Output;
    if (first.empty()) first = run.Output;
    EXPECT_EQ(run.Output, first) << name;
  }
  EXPECT_NE(first.find("comment '// \xC3\xA9'"), std::string::npos) << first;
  EXPECT_NE(first.find("number '0x1F'"), std::string::npos) << first;

  const std::string file = Quoted((dir / "utf8.cpp").string());
  for (const std::string& args : {"tokens " + file, "tokens --syntax " + cpp, "tokens " + file + " --syntax " + cpp +
                                      " --format xml", "tokens " + file + " " + file + " --syntax " + cpp}) {
    const TRun run = Gdtool(args);
    EXPECT_EQ(run.Status, 2) << args;
    EXPECT_NE(run.Output.find("usage: gdtool tokens"), std::string::npos) << run.Output;
  }
  const TRun missing = Gdtool("tokens " + Quoted((dir / "none.cpp").string()) + " --syntax " + cpp);
  EXPECT_EQ(missing.Status, 1);
  EXPECT_EQ(std::count(missing.Output.begin(), missing.Output.end(), '\n'), 1) << missing.Output;
  EXPECT_EQ(Gdtool("tokens " + file + " --syntax " + Quoted((dir / "none.gdx").string())).Status, 1);
}

namespace {

/// A current-layout pair under `name` in `dir`, copied from a bundled definition.
fs::path CopyBundledPair(const fs::path& dir, const std::string& name) {
  const fs::path source = orl::test::HostDir() / "syntax" / "INI.gdx";
  const fs::path target = dir / (name + ".gdx");
  fs::copy_file(source, target);
  fs::copy_file(fs::path(source).replace_extension(".ini"), fs::path(target).replace_extension(".ini"));
  return target;
}

/// Every file of `dir` with its bytes: what a failed command must leave as it was.
std::map<fs::path, std::string> Snapshot(const fs::path& dir) {
  std::map<fs::path, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(dir))
    files[entry.path()] = entry.is_symlink() ? "<link>" : entry.is_regular_file() ? ReadBytes(entry.path()) : "<folder>";
  return files;
}

} // namespace

TEST(Gdtool, NamesThatAreNoValidTextStayTheFilesTheyName) {
  orl::test::TTempFolder dir;
  const std::string name = "caf\xe9";  // Latin-1, not UTF-8
  const fs::path gdx = CopyBundledPair(dir.Path(), name), ini = fs::path(gdx).replace_extension(".ini");
  const std::string gdxBytes = ReadBytes(gdx), iniBytes = ReadBytes(ini);

  const TRun resave = Gdtool("resave " + Quoted(gdx.string()));
  EXPECT_EQ(resave.Status, 0) << resave.Output;
  EXPECT_NE(resave.Output.find("saved " + gdx.string()), std::string::npos) << resave.Output;
  EXPECT_EQ(ReadBytes(gdx), gdxBytes);
  EXPECT_EQ(ReadBytes(ini), iniBytes);

  const TRun convert = Gdtool("convert --force " + Quoted(gdx.string()));
  EXPECT_EQ(convert.Status, 0) << convert.Output;
  EXPECT_EQ(ReadBytes(gdx), gdxBytes);
  EXPECT_EQ(ReadBytes(ini), iniBytes);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), fs::directory_iterator()), 2) << "a stray file appeared";
}

TEST(Gdtool, AnUnreadableCompanionFailsTheCommandAndNamesIt) {
  orl::test::TTempFolder dir;
  const fs::path gdx = CopyBundledPair(dir.Path(), "Pair"), ini = fs::path(gdx).replace_extension(".ini");
  fs::remove(ini);
  fs::create_symlink(ini.filename(), ini);  // a link to itself: no file is there to be read, nor told missing
  const auto before = Snapshot(dir.Path());
  for (const std::string command : {"resave ", "convert --force ", "check "}) {
    const TRun run = Gdtool(command + Quoted(gdx.string()));
    EXPECT_EQ(run.Status, command == "convert --force " ? 1 : 2) << command << run.Output;
    EXPECT_NE(run.Output.find(ini.string()), std::string::npos) << command << run.Output;
    EXPECT_EQ(Snapshot(dir.Path()), before) << command;
  }
}

TEST(Gdtool, APairIsReplacedWholeOrNotAtAll) {
  orl::test::TTempFolder dir;
  const fs::path in = CopyBundledPair(dir.Path(), "In");
  fs::create_directories(dir / "out" / "Out.gdx");  // the definition cannot be written
  orl::test::WriteBytes(dir / "out" / "Out.ini", "[Comment]\r\n1=the user's own\r\n");
  auto before = Snapshot(dir.Path());
  EXPECT_EQ(Gdtool("resave " + Quoted(in.string()) + " " + Quoted((dir / "out" / "Out.gdx").string())).Status, 2);
  EXPECT_EQ(Snapshot(dir.Path()), before);

  // A version list that cannot be written stops the save before the pair is touched.
  const fs::path host = dir / "host", defs = dir / "defs";
  fs::create_directories(host / "syntax");
  fs::create_directories(defs);
  orl::test::WriteBytes(host / "syntax" / "_list.ver", "");
  const fs::path hosted = CopyBundledPair(defs, "Hosted");
  orl::test::WriteBytes(hosted, ReadBytes(hosted) + std::string("x\0", 2));  // a resave would change it
  for (const fs::path& folder : {dir.Path(), host, host / "syntax"}) OpenTo(folder, false);
  OpenTo(defs, true);
  before = Snapshot(dir.Path());
  const TRun run = GdtoolUnprivileged("resave " + Quoted(hosted.string()) + " --host " + Quoted(host.string()));
  EXPECT_EQ(run.Status, 2);
  EXPECT_NE(run.Output.find("_list.ver"), std::string::npos) << run.Output;
  EXPECT_EQ(Snapshot(dir.Path()), before);
}

TEST(Gdtool, CheckReportsAnUnreadableFileAndAnOddUtf16Length) {
  orl::test::TTempFolder dir;
  const fs::path odd = CopyBundledPair(dir.Path(), "Odd");
  orl::test::WriteBytes(odd, ReadBytes(odd) + "x");
  const TRun oddRun = Gdtool("check " + Quoted(odd.string()));
  EXPECT_EQ(oddRun.Status, 1);
  EXPECT_NE(oddRun.Output.find("odd number of bytes"), std::string::npos) << oddRun.Output;

  const fs::path locked = CopyBundledPair(dir.Path(), "Locked");
  OpenTo(dir.Path(), false);
  fs::permissions(locked, fs::perms::none);
  const TRun lockedRun = GdtoolUnprivileged("check " + Quoted(locked.string()));
  EXPECT_EQ(lockedRun.Status, 2) << lockedRun.Output;
  EXPECT_NE(lockedRun.Output.find("Permission denied"), std::string::npos) << lockedRun.Output;
  EXPECT_EQ(lockedRun.Output.find("older layout"), std::string::npos) << lockedRun.Output;
}
