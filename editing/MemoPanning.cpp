// Panning: while the middle button is held, the view drifts toward the
// mouse, one row (or column) per tick for every two cells the mouse stands
// away from where the button went down; within two cells it rests.

#include <algorithm>

#include "editing/OrlMemo.h"

namespace orl {

namespace {
constexpr int kCellsPerStep = 2;
}  // namespace

void TOrlCustomMemo::StartPanning(int x, int y) {
  FPanning = true;
  FPanOrigin = {x, y};
  FMouseX = x;
  FMouseY = y;
  FWindow->StartTimer(TMemoTimer::Pan, TimerInterval(TMemoTimer::Pan));
}

void TOrlCustomMemo::StopPanning() {
  FPanning = false;
  StopTimer(TMemoTimer::Pan);
}

void TOrlCustomMemo::PanTick() {
  if (!FPanning || FCellSize.H <= 0 || FCellSize.W <= 0) return StopPanning();
  const int rows = (FMouseY - FPanOrigin.Y) / (kCellsPerStep * FCellSize.H);
  const int columns = (FMouseX - FPanOrigin.X) / (kCellsPerStep * FCellSize.W);
  if (rows != 0) {
    FOffsetScrollMode = osmAllow;
    SetTopLine(StepShownLines(FTopLine, rows));
  }
  if (columns != 0 && !FWordWrap) SetLeftCol(std::max(FLeftCol + columns, 0));
  if (rows != 0 || columns != 0) PlaceCaret(true);
}

} // namespace orl
