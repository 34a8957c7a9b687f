#pragma once
// A definition loaded into a style set as the editor loads it: into a memo,
// or into a set of its own for the tools that colour text with it.

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "syntax/MemoStyleSlots.h"
#include "syntax/TokenRun.h"

namespace orl {

/// Loads `gdx` into `memo`; false when no style set could be made of it.
/// Raises EFileError when the file cannot be read, so that an unreadable
/// definition is never taken for one that colours nothing. `extensions`,
/// when given, receives the [StandardExtensions] list.
bool LoadDefinitionInto(TOrlMemoStyleSlots& memo, const std::filesystem::path& gdx,
                        std::u16string* extensions = nullptr);

struct TLoadedSyntax {
  TOrlMemoStyleSlots Memo;
  std::u16string Extensions;  ///< the [StandardExtensions] list, as ".cpp|.h|"
};

/// Loads `gdx` into a set of its own; null when no style set could be made
/// of it. Raises EFileError as LoadDefinitionInto does.
std::unique_ptr<TLoadedSyntax> LoadSyntax(const std::filesystem::path& gdx);

/// Receives one line's runs, which cover it without gaps, and the state it ends in.
using TLineVisitor = std::function<void(int line, const std::vector<TTokenRun>& runs, const TStyle& state)>;

/// Colours `lines` top to bottom as the editor does, each line from the
/// state the one above ended in.
void ColourLines(TLoadedSyntax& syntax, const std::vector<std::u16string>& lines, const TLineVisitor& visit);

} // namespace orl
