#pragma once
// A memo in a headless window of 80 by 25 cells, painted on a recording canvas.

#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>

#include "TempFolder.h"
#include "editing/HeadlessWindow.h"
#include "syntax/SyntaxTestFiles.h"
#include "editing/OrlMemo.h"
#include "syntax/OrlSyntax.h"
#include "view/MemoPainter.h"
#include "view/RecordingCanvas.h"
#include "BuildPaths.h"

namespace orl::test {

class PaintFixture : public ::testing::Test {
protected:
  static constexpr int W = THeadlessWindow::kCellW, H = THeadlessWindow::kCellH;

  PaintFixture() {
    window.Client = {0, 0, 81 * W + 1, 25 * H};
    memo.ResizeEditor();
  }
  void LoadCpp() {
    TOrlSyntax syntax;
    std::u16string asp;
    syntax.LoadStyleFromFile(&memo, (orl::test::HostDir() / "syntax" / "C++.gdx").u16string(), u"C++", 0, asp);
    ASSERT_NE(memo.FStyles, nullptr);
  }
  /// Loads a definition written from `gdx` (sections, lines joined by "\n").
  void LoadDefinition(std::u16string_view gdx) {
    TOrlSyntax syntax;
    std::u16string asp;
    syntax.LoadStyleFromFile(&memo, WriteDefinitionFile(Folder, "Lang.gdx", gdx).u16string(), u"Lang", 0, asp);
    ASSERT_NE(memo.FStyles, nullptr);
  }
  /// A whole paint; the display list of the last one stays in `canvas`.
  void PaintAll() {
    canvas.Clear();
    painter.Paint(canvas, {});
  }
  std::vector<const TPaintItem*> Texts(int line) const { return canvas.TextOf(line); }
  /// The row's text items joined, in drawing order.
  std::u16string Joined(int line) const {
    std::u16string all;
    for (const TPaintItem* item : Texts(line)) all += item->Text;
    return all;
  }
  /// Sum of the text items' widths of a row.
  int TotalWidth(int line) const {
    int sum = 0;
    for (const TPaintItem* item : Texts(line)) sum += item->Width;
    return sum;
  }
  /// Each text item starts where the one before it ended.
  bool Seamless(int line) const {
    const auto texts = Texts(line);
    for (size_t i = 1; i < texts.size(); ++i)
      if (texts[i]->R.Left != texts[i - 1]->R.Right) return false;
    return true;
  }

  TTempFolder Folder;
  THeadlessWindow window;
  TOrlMemo memo{&window};
  TRecordingCanvas canvas{window};
  TMemoPainter painter{memo};
};

} // namespace orl::test
