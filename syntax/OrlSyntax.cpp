#include "syntax/OrlSyntax.h"

#include "definition/DefinitionFormat.h"
#include "platform/CodePages.h"
#include "platform/FileIO.h"
#include "platform/OrlError.h"
#include "platform/ProfileFiles.h"
#include "syntax/DefinitionReader.h"

namespace orl {
namespace {

std::vector<std::u16string> ReadDefinitionLines(const std::filesystem::path& path) {
  return SplitLines(DecodeText(ReadFileBytes(path), SystemAnsiCodePage()));
}

// Numbered keys "1", "2", ... of a companion section, up to the first missing one.
void ReadNumberedLines(const std::filesystem::path& companion, std::u16string_view section, TStringList& list) {
  list.Clear();
  for (int n = 1;; ++n) {
    const std::string key = std::to_string(n);
    std::optional<std::u16string> line =
        GetPrivateProfileString(companion, section, std::u16string(key.begin(), key.end()));
    if (!line) break;
    list.Add(std::move(*line));
  }
}

} // namespace

void TOrlSyntax::Clear() {
  KeyWords.Clear();
  Tags.Clear();
  Blocks.Clear();
}

void TOrlSyntax::DebugWrite(TOrlMemoStyleSlots* memo, const std::u16string& text) {
  if (OnDebugWrite)
    OnDebugWrite(text, true);
  else if (memo && memo->OnDebugWrite)
    memo->OnDebugWrite(text, true);
}

void TOrlSyntax::ResetForLoad(TOrlMemoStyleSlots* memo, TOrlCustomMemoStyles& styles) {
  FStandardFileExtensions.clear();
  Clear();
  styles.NodeIdList.Clear();
  styles.FAddProjectClassesToCompletion = styles.FHasRegExKeywords = styles.FNumbersAsSymbols = false;
  styles.FStringLine = styles.FAutoCompleteTags = false;
  styles.FSymbols.clear();
  styles.FNumericChars.clear();
  if (!memo) return;
  memo->CaseSensitive = memo->TagsCaseSensitive = false;
  // A definition without tags is no mark-up, whatever was loaded before.
  memo->FHtml = false;
  styles.FAllowCmdEF = styles.FAllowCmdIN = styles.FAllowCmdLF = false;
}

void TOrlSyntax::LoadStyleFromFile(TOrlMemoStyleSlots* Memo, const std::u16string& FileName,
                                   const std::u16string& SyntaxName, [[maybe_unused]] int ASPLang,
                                   [[maybe_unused]] std::u16string& sASP) {
  auto styles = std::make_unique<TOrlCustomMemoStyles>(Memo, FileName);
  // The previous load's sets all go, members included: this load brings its own.
  if (Memo) Memo->FreeSyntaxStyles();
  const std::filesystem::path path = PathFromString(FileName);
  if (!FileExists(path)) return;
  std::vector<std::u16string> lines;
  try {
    lines = ReadDefinitionLines(path);
  } catch (const EFileError& e) {
    DebugWrite(Memo, FileName + u": " + Utf8ToUtf16(e.what()));
    return;
  }
  BuildStyles(Memo, std::move(styles), lines, FileName, SyntaxName);
}

void TOrlSyntax::LoadStyleFromLines(TOrlMemoStyleSlots& Memo, const std::vector<std::u16string>& Lines,
                                    const std::u16string& FileName, const std::u16string& SyntaxName) {
  auto styles = std::make_unique<TOrlCustomMemoStyles>(&Memo, FileName);
  Memo.FreeSyntaxStyles();
  BuildStyles(&Memo, std::move(styles), Lines, FileName, SyntaxName);
}

void TOrlSyntax::BuildStyles(TOrlMemoStyleSlots* Memo, std::unique_ptr<TOrlCustomMemoStyles> styles,
                             const std::vector<std::u16string>& lines, const std::u16string& FileName,
                             const std::u16string& SyntaxName) {
  // Members of a multi-highlighter page are not loaded yet; their slots stay empty.
  ResetForLoad(Memo, *styles);
  TDefinitionReader reader(*this, *styles, Memo);
  reader.ReadLines(lines);
  reader.Finish();
  if (!Memo) return;
  styles->FNumbersAsSymbols =
      !styles->FNumericChars.empty() && styles->FSymbols.find(styles->FNumericChars) != std::u16string::npos;
  styles->FFileName = FileName;
  styles->FSyntaxName = SyntaxName;
  Memo->SetStyles(styles.release());
  if (Memo->FHtml) Memo->FHtmlStyle = Memo->FStyles;
}

void TOrlSyntax::LoadStyleFromFile(TOrlMemoStyleSlots& Memo, const std::u16string& FileName,
                                   const std::u16string& SyntaxName, TStringList& SampleList, TStringList& InfoList) {
  const bool bWasMultiLoading = FHtmlMultiLoading;
  FHtmlMultiLoading = true;
  std::u16string noASP;
  LoadStyleFromFile(&Memo, FileName, SyntaxName, 1, noASP);
  FHtmlMultiLoading = bWasMultiLoading;
  const std::filesystem::path companion = CompanionPath(PathFromString(FileName));
  ReadNumberedLines(companion, sections::Comment, InfoList);
  ReadNumberedLines(companion, sections::Sample, SampleList);
}

} // namespace orl
