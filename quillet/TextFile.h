#pragma once
// Text files in and out of a memo. A file keeps the coding, byte-order mark
// and line endings it was read with, so that saving an unchanged text gives
// back the same bytes.

#include <filesystem>

namespace orl {

class TOrlMemo;

/// Reads `file` into the memo as a new, unmodified text. Raises EFileError
/// when the file cannot be read; the memo then keeps what it held.
void LoadTextFile(TOrlMemo& memo, const std::filesystem::path& file);

/// Gives an empty memo the coding of a new text: UTF-8 without mark, LF endings.
void NewTextCoding(TOrlMemo& memo);

/// Writes the memo's text to `file` through the store's safe save (a
/// temporary beside the file, renamed over it) and marks the text saved.
/// Raises EFileError; the file on disk is then as it was.
void SaveTextFile(TOrlMemo& memo, const std::filesystem::path& file);

} // namespace orl
