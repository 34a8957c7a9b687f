#pragma once
// A definition loaded into a style set as the editor loads it, for the
// commands that colour text with it.

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "syntax/MemoStyleSlots.h"
#include "syntax/TokenRun.h"

namespace gdtool {

struct TLoadedSyntax {
  orl::TOrlMemoStyleSlots Memo;
  std::u16string Extensions;  ///< the [StandardExtensions] list, as ".cpp|.h|"
};

/// Loads `gdx`; null when no style set could be made of it. Raises EOrlError
/// when the file cannot be read, so that an unreadable definition is never
/// taken for one that colours nothing.
std::unique_ptr<TLoadedSyntax> LoadSyntax(const std::filesystem::path& gdx);

/// Receives one line's runs, which cover it without gaps, and the state it ends in.
using TLineVisitor = std::function<void(int line, const std::vector<orl::TTokenRun>& runs, const orl::TStyle& state)>;

/// Colours `lines` top to bottom as the editor does, each line from the
/// state the one above ended in.
void ColourLines(TLoadedSyntax& syntax, const std::vector<std::u16string>& lines, const TLineVisitor& visit);

} // namespace gdtool
