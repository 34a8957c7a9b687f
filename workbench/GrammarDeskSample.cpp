// The sample page: the definition's sample text in a memo that the
// definition itself colours, restyled from the pages as they are edited so
// that an author sees what each change does.

#include <QTimer>

#include "definition/DefinitionFormat.h"
#include "editing/EditorAppearance.h"
#include "platform/FileIO.h"
#include "syntax/OrlSyntax.h"
#include "widgets/MemoWidget.h"
#include "workbench/GrammarDeskMain.h"

namespace orl {

void TSynForm::ConnectSample() {
  FSampleStyleTimer = new QTimer(this);
  FSampleStyleTimer->setSingleShot(true);
  FSampleStyleTimer->setInterval(kSampleStyleDelayMs);
  connect(FSampleStyleTimer, &QTimer::timeout, this, &TSynForm::RefreshSampleStyles);
  SampleMemo->Memo().OnChange = [this] {
    if (FFilling) return;
    std::vector<std::u16string> lines = SampleLines();
    if (lines == FDocument->Pages().Sample) return;
    FDocument->Pages().Sample = std::move(lines);
    FDocument->SetModified();
  };
}

std::vector<std::u16string> TSynForm::SampleLines() {
  TOrlMemo& memo = SampleMemo->Memo();
  std::vector<std::u16string> lines;
  const int count = memo.InternalLines().Count();
  for (int row = 0; row < count; ++row) {
    // A wrapped row continues the line above it.
    if (row > 0 && memo.GetWrapped(row)) lines.back() += memo.GetLineText(row);
    else lines.push_back(memo.GetLineText(row));
  }
  return lines;
}

void TSynForm::ShowSample() {
  const std::vector<std::u16string>& sample = FDocument->Pages().Sample;
  if (SampleLines() == sample) return;
  std::u16string text;
  for (size_t i = 0; i < sample.size(); ++i) text += (i ? u"\n" : u"") + sample[i];
  const bool bWasFilling = FFilling;
  FFilling = true;
  SampleMemo->Memo().SetText(text);
  FFilling = bWasFilling;
}

void TSynForm::ScheduleSampleStyles() {
  if (FSampleStyleTimer) FSampleStyleTimer->start();
}

void TSynForm::RefreshSampleStyles() {
  TOrlMemo& memo = SampleMemo->Memo();
  if (FDocument->HasDocument()) {
    TOrlSyntax syntax;
    // A rule the author is still typing may not compile yet; the sample then shows it uncoloured.
    syntax.OnDebugWrite = [](const std::u16string&, bool) {};
    const std::filesystem::path& file = FDocument->CurrentFileName();
    syntax.LoadStyleFromLines(memo, FDocument->DefinitionLines(), StringFromPath(file), BaseNameOf(file));
  } else {
    memo.FreeSyntaxStyles();
  }
  ApplyEditorAppearance(memo, ReadEditorAppearance(FHost.SettingsIni.get()));
  memo.ClearLineStylesFrom(0);
  memo.Invalidate();
}

} // namespace orl
