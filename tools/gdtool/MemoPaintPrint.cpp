#include "MemoPaintPrint.h"

#include "Console.h"
#include "view/MemoPainter.h"
#include "view/RecordingCanvas.h"

namespace gdtool {
namespace {
using namespace orl;

std::string StyleLetters(TFontStyles style) {
  std::string letters;
  if (style & fsBold) letters += 'b';
  if (style & fsItalic) letters += 'i';
  if (style & fsUnderline) letters += 'u';
  if (style & fsStrikeOut) letters += 's';
  return letters;
}

void PrintRow(const TRecordingCanvas& canvas, int row, int line, std::ostream& out) {
  out << "{\"row\":" << row << ",\"line\":" << line << ",\"runs\":[";
  const char* separator = "";
  for (const TPaintItem* item : canvas.TextOf(line)) {
    out << separator << "{\"text\":" << JsonString(item->Text) << ",\"x\":" << item->R.Left
        << ",\"fg\":\"" << RgbHex(item->Fg) << "\",\"bg\":\"" << RgbHex(item->Bg) << "\",\"style\":\""
        << StyleLetters(item->Style) << "\"}";
    separator = ",";
  }
  out << "]}\n";
}

void PrintRects(const char* what, const std::vector<TRect>& rects, int areaTop, int rowHeight, std::ostream& out) {
  for (const TRect& r : rects) {
    const int first = (r.Top - areaTop) / rowHeight, last = (r.Bottom - 1 - areaTop) / rowHeight;
    out << "trace " << what << " rows " << first << "-" << last << " [" << r.Left << "," << r.Top << "," << r.Right
        << "," << r.Bottom << "]\n";
  }
}

} // namespace

void PrintPaint(TOrlMemo& memo, std::ostream& out, int firstRow, int lastRow) {
  TRecordingCanvas canvas(memo.Window());
  TMemoPainter painter(memo);
  // A list keeps no pixels to move: every paint it takes is a whole one.
  memo.FOffsetScrollMode = osmNone;
  painter.Paint(canvas, {});
  const int rows = std::max(memo.VisibleRowMax(), 1);
  for (int row = std::max(firstRow, 0); row < rows && (lastRow < 0 || row <= lastRow); ++row) {
    const int line = memo.GetLineFromRow(row);
    if (memo.GetRowFromLine(line) != row) break;
    PrintRow(canvas, row, line, out);
  }
}

void PrintInvalidations(TOrlMemo& memo, THeadlessWindow& window, std::ostream& out) {
  const int areaTop = memo.EditorRect(true, -1).Top, H = std::max(memo.CellSize().H, 1);
  if (window.InvalidatedAll > 0) out << "trace invalidate all\n";
  PrintRects("invalidate", window.Invalidated, areaTop, H, out);
  PrintRects("redraw", window.Redrawn, areaTop, H, out);
  window.InvalidatedAll = 0;
  window.Invalidated.clear();
  window.Redrawn.clear();
}

} // namespace gdtool
