#include "LoadedSyntax.h"

#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "syntax/LineTokeniser.h"
#include "syntax/OrlSyntax.h"
#include "syntax/TokeniserHost.h"
#include "textstore/OrlMemoStrings.h"

namespace gdtool {

std::unique_ptr<TLoadedSyntax> LoadSyntax(const std::filesystem::path& gdx) {
  orl::ReadFileBytes(gdx);  // raises the file error of an unreadable definition
  auto loaded = std::make_unique<TLoadedSyntax>();
  orl::TOrlSyntax syntax;
  syntax.OnDebugWrite = [](const std::u16string&, bool) {};
  orl::TStringList sample, info;
  syntax.LoadStyleFromFile(loaded->Memo, orl::StringFromPath(gdx), orl::BaseNameOf(gdx), sample, info);
  if (!loaded->Memo.FStyles) return nullptr;
  loaded->Extensions = syntax.FStandardFileExtensions;
  return loaded;
}

void ColourLines(TLoadedSyntax& syntax, const std::vector<std::u16string>& lines, const TLineVisitor& visit) {
  orl::TOrlMemoStrings store;
  for (const std::u16string& line : lines) store.DoAdd(line);
  orl::TPlainTokeniserHost host;
  host.bAllowURLClick = syntax.Memo.UrlAware;
  orl::TLineTokeniser tokeniser(store, syntax.Memo, host);
  orl::TStyle state;
  orl::TTokenRunList runs;
  for (int i = 0; i < store.Count(); ++i) {
    tokeniser.ColourLine(i, state, runs);
    visit(i, runs.Runs, state);
  }
}

} // namespace gdtool
