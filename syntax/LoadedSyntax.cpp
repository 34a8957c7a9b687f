#include "syntax/LoadedSyntax.h"

#include "definition/DefinitionFormat.h"
#include "platform/FileIO.h"
#include "syntax/LineTokeniser.h"
#include "syntax/OrlSyntax.h"
#include "syntax/TokeniserHost.h"
#include "textstore/OrlMemoStrings.h"

namespace orl {

bool LoadDefinitionInto(TOrlMemoStyleSlots& memo, const std::filesystem::path& gdx, std::u16string* extensions) {
  ReadFileBytes(gdx);  // raises the file error of an unreadable definition
  TOrlSyntax syntax;
  syntax.OnDebugWrite = [](const std::u16string&, bool) {};
  TStringList sample, info;
  syntax.LoadStyleFromFile(memo, StringFromPath(gdx), BaseNameOf(gdx), sample, info);
  if (extensions) *extensions = syntax.FStandardFileExtensions;
  return memo.FStyles != nullptr;
}

std::unique_ptr<TLoadedSyntax> LoadSyntax(const std::filesystem::path& gdx) {
  auto loaded = std::make_unique<TLoadedSyntax>();
  if (!LoadDefinitionInto(loaded->Memo, gdx, &loaded->Extensions)) return nullptr;
  return loaded;
}

void ColourLines(TLoadedSyntax& syntax, const std::vector<std::u16string>& lines, const TLineVisitor& visit) {
  TOrlMemoStrings store;
  for (const std::u16string& line : lines) store.DoAdd(line);
  TPlainTokeniserHost host;
  host.bAllowURLClick = syntax.Memo.UrlAware;
  TLineTokeniser tokeniser(store, syntax.Memo, host);
  TStyle state;
  TTokenRunList runs;
  for (int i = 0; i < store.Count(); ++i) {
    tokeniser.ColourLine(i, state, runs);
    visit(i, runs.Runs, state);
  }
}

} // namespace orl
