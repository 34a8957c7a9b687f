// Conversion of an older definition: the head line, then one walk over the
// lines in which section markers switch the mode and each mode takes the
// lines of its section.

#include "definition/LegacyConversion.h"

#include <optional>

#include "definition/DefinitionFormat.h"
#include "definition/IniValues.h"
#include "definition/IniWriteBuffer.h"
#include "definition/LegacyOptions.h"
#include "platform/Blanks.h"
#include "platform/CharCase.h"
#include "platform/CodePages.h"

namespace orl {
namespace {

using namespace legacy;
using enum TMarker;

/// What the lines of the current section are read as.
enum class TMode {
  mdNone = 0,
  mdOptions = 1,
  mdTags = 2,
  mdKeywords = 3,
  mdAutoHint = 4,
  mdAutoComplete = 5,
  mdUserMenu = 6,
  mdTagComplete = 7,
  mdSample = 8,
};
using enum TMode;

/// The tag or the keyword sections met so far.
struct TWordSections {
  std::u16string_view Section;  ///< where their groups go in the definition file
  bool bWholeLine;              ///< a word is the line as written, quotes and all (keywords)
  int Number = 0;               ///< names a group that has no `>` line
  bool bFresh = false;          ///< the next word line settles the group's name
};

std::u16string LowerCased(std::u16string_view text) {
  std::u16string lower(text);
  for (char16_t& c : lower) c = SysLowerChar(c);
  return lower;
}

bool IsItemLine(std::u16string_view s) { return s.size() > 2 && s.starts_with(u"->"); }

// `caption|insert text+letter`, as the user menu and the completion groups
// hold an item; none for an item without a caption.
std::optional<std::u16string> ItemEntry(std::u16string_view s) {
  const std::u16string name = ItemName(s);
  if (name.empty()) return std::nullopt;
  const std::u16string data = ItemData(s);
  return name + u'|' + (data.empty() ? name : data) + u'+' + ItemImage(s);
}

class TOlderParser {
public:
  TOlderParser(const TStringList& lines, TMemIniFile& gdx, TMemIniFile& ini)
      : FLines(lines), FGdx(gdx), FIni(ini), FLookahead(lines), FOptions(FGdx) {}

  void Run() {
    if (FLines.Count() == 0) return;
    for (int i = ReadHeadLine(); i < FLines.Count(); ++i) ReadLine(i);
    FGdx.Flush();
    FIni.Flush();
  }

private:
  int ReadHeadLine();
  void ReadLine(int index);
  void StartSection(TMarker marker, int index);
  bool EnterWhenContentFollows(TMode mode, int index);
  void OpenWordSection(TWordSections& words, TMode mode, int index);
  void ReadContent(std::u16string_view line, std::u16string_view s, bool bEnd);
  void AddHeadComment(std::u16string_view s);
  void ReadOption(std::u16string_view s, bool bEnd);
  void ReadWord(TWordSections& words, std::u16string_view s, bool bEnd);
  void ReadHint(std::u16string_view s, bool bEnd);
  void ReadCompletion(std::u16string_view section, std::u16string_view s, bool bEnd);
  void ReadUserMenu(std::u16string_view s, bool bEnd);
  void ReadSample(std::u16string_view line, bool bEnd);
  void EndNumberedSection();
  void WriteNumbered(std::u16string_view section, std::u16string_view text);
  void ClearGroup();

  const TStringList& FLines;
  TIniWriteBuffer FGdx;  ///< writes held back, so that keys written again cost no table rebuilds
  TIniWriteBuffer FIni;
  const TContentLookahead FLookahead;
  TOlderOptions FOptions;
  TMode FMode = mdNone;
  bool FHead = true;       ///< no section marker met yet: brace lines are comment text
  int FRunningNumber = 0;  ///< the key of the next comment, hint, menu entry or sample line, less one
  TWordSections FTags{sections::Tags, false};
  TWordSections FKeywords{sections::Keywords, true};
  std::u16string FGroupName;
  std::u16string FGroupValue;
};

// `{$syntax;file}` names the members of a multi-highlighter. Only a complete
// head is consumed; anything short of it is read like every other line.
int TOlderParser::ReadHeadLine() {
  std::u16string_view head = TrimBlanks(FLines.Strings(0));
  if (head.size() <= 2 || !head.starts_with(u"{$")) return 0;
  head.remove_prefix(2);
  const size_t semicolon = head.find(u';');
  if (semicolon == std::u16string_view::npos) return 0;
  FIni.WriteString(sections::MultiHighlight, u"Syntax", head.substr(0, semicolon));
  head.remove_prefix(semicolon + 1);
  const size_t close = head.find(u'}');
  if (close == std::u16string_view::npos) return 0;
  FIni.WriteString(sections::MultiHighlight, u"File", head.substr(0, close));
  return 1;
}

void TOlderParser::ReadLine(int index) {
  const std::u16string& line = FLines.Strings(index);
  const std::u16string s = StripComment(line);
  const TMarker marker = MarkerOf(s);
  if (marker == mkNone || marker == mkEnd) ReadContent(line, s, marker == mkEnd);
  else StartSection(marker, index);
}

// A marker with nothing behind it leaves the mode as it was. `[endsample]`
// opens nothing, so brace lines behind it may still be comment text.
void TOlderParser::StartSection(TMarker marker, int index) {
  if (marker != mkEndSample) FHead = false;
  switch (marker) {
  case mkOptions: FMode = mdOptions; break;
  case mkTags: OpenWordSection(FTags, mdTags, index); break;
  case mkKeywords: OpenWordSection(FKeywords, mdKeywords, index); break;
  case mkAutoHint:
    FRunningNumber = 0;
    EnterWhenContentFollows(mdAutoHint, index);
    break;
  case mkUserMenu:
    FRunningNumber = 0;
    ClearGroup();
    EnterWhenContentFollows(mdUserMenu, index);
    break;
  case mkAutoComplete:
    ClearGroup();
    EnterWhenContentFollows(mdAutoComplete, index);
    break;
  case mkTagComplete:
    ClearGroup();
    EnterWhenContentFollows(mdTagComplete, index);
    break;
  case mkBeginSample:
    FRunningNumber = 0;
    FMode = mdSample;
    break;
  case mkEndSample:
    FRunningNumber = 0;
    FMode = mdNone;
    break;
  case mkNone:
  case mkEnd: break;
  }
}

bool TOlderParser::EnterWhenContentFollows(TMode mode, int index) {
  if (!FLookahead.NextHasContent(index)) return false;
  FMode = mode;
  return true;
}

void TOlderParser::OpenWordSection(TWordSections& words, TMode mode, int index) {
  ClearGroup();
  if (!EnterWhenContentFollows(mode, index)) return;
  ++words.Number;
  words.bFresh = true;
}

void TOlderParser::ReadContent(std::u16string_view line, std::u16string_view s, bool bEnd) {
  if (FHead && s.size() > 1 && s.starts_with(u'{')) return AddHeadComment(s);
  switch (FMode) {
  case mdNone: break;
  case mdOptions: ReadOption(s, bEnd); break;
  case mdTags: ReadWord(FTags, s, bEnd); break;
  case mdKeywords: ReadWord(FKeywords, s, bEnd); break;
  case mdAutoHint: ReadHint(s, bEnd); break;
  case mdAutoComplete: ReadCompletion(sections::AutoComplete, s, bEnd); break;
  case mdUserMenu: ReadUserMenu(s, bEnd); break;
  case mdTagComplete: ReadCompletion(sections::TagComplete, s, bEnd); break;
  case mdSample: ReadSample(line, bEnd); break;
  }
}

void TOlderParser::AddHeadComment(std::u16string_view s) {
  s.remove_prefix(1);
  if (s.ends_with(u'}')) s.remove_suffix(1);
  WriteNumbered(sections::Comment, s);
}

void TOlderParser::ReadOption(std::u16string_view s, bool bEnd) {
  if (bEnd) FMode = mdNone;
  else FOptions.Apply(LowerCased(KeyOf(s)), ValueOf(s));
}

// The group is written at `[end]` only; a section that never reaches it is lost.
void TOlderParser::ReadWord(TWordSections& words, std::u16string_view s, bool bEnd) {
  if (bEnd) {
    if (!FGroupName.empty()) FGdx.WriteString(words.Section, FGroupName, FGroupValue);
    FMode = mdNone;
    return;
  }
  const std::u16string word = WordOf(s);
  if (word.empty()) return;
  const bool bNameLine = word == u">";
  if (words.bFresh) {
    const std::u16string name = bNameLine ? ValueOf(s) : std::u16string();
    FGroupName = name.empty() ? IntToIniText(words.Number) : name;
    words.bFresh = false;
  }
  if (bNameLine) return;
  std::u16string_view appended = s;
  if (!words.bWholeLine) {
    appended = word;
    if (appended.starts_with(u'\\')) appended.remove_prefix(1);
    appended = TrimBlanks(appended);
  }
  (FGroupValue += appended) += u'|';
}

void TOlderParser::ReadHint(std::u16string_view s, bool bEnd) {
  if (bEnd) return EndNumberedSection();
  const std::u16string hint = HintOf(s);
  if (!hint.empty()) WriteNumbered(sections::Hints, hint);
}

// A group ends at the next group line, written when it has a name, or at
// `[end]`, written only when it also has items.
void TOlderParser::ReadCompletion(std::u16string_view section, std::u16string_view s, bool bEnd) {
  if (bEnd) {
    if (!FGroupName.empty() && !FGroupValue.empty()) FIni.WriteString(section, FGroupName, FGroupValue);
    FMode = mdNone;
    return;
  }
  if (s.size() <= 2) return;
  if (IsItemLine(s)) {
    if (const auto item = ItemEntry(s)) (FGroupValue += *item) += u"##";
    return;
  }
  if (!FGroupName.empty()) FIni.WriteString(section, FGroupName, FGroupValue);
  FGroupName = GroupName(s);
  FGroupValue.clear();
}

void TOlderParser::ReadUserMenu(std::u16string_view s, bool bEnd) {
  if (bEnd) return EndNumberedSection();
  if (!IsItemLine(s)) return;
  if (const auto item = ItemEntry(s)) WriteNumbered(sections::UserMenu, *item);
}

// Sample text is taken as written, blanks and comments included.
void TOlderParser::ReadSample(std::u16string_view line, bool bEnd) {
  if (bEnd) return EndNumberedSection();
  WriteNumbered(sections::Sample, line);
}

void TOlderParser::EndNumberedSection() {
  FRunningNumber = 0;
  FMode = mdNone;
}

void TOlderParser::WriteNumbered(std::u16string_view section, std::u16string_view text) {
  FIni.WriteString(section, IntToIniText(++FRunningNumber), text);
}

void TOlderParser::ClearGroup() {
  FGroupName.clear();
  FGroupValue.clear();
}

} // namespace

void ConvertLinesToNew(const TStringList& lines, TMemIniFile& gdx, TMemIniFile& ini) {
  TOlderParser(lines, gdx, ini).Run();
}

void ConvertToNew(const std::filesystem::path& fileName, TMemIniFile& gdx, TMemIniFile& ini) {
  TStringList lines;
  lines.LoadFromFile(fileName, SystemAnsiCodePage());
  ConvertLinesToNew(lines, gdx, ini);
}

} // namespace orl
