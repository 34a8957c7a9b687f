#pragma once
// The line store: the text of one document as rows, each one UTF-16 string
// without its line ending and one attribute. Every other part of the engine
// reaches the text through it.
//
// Invariants:
// 1. Every row made by the store has an attribute; its class is TAttribute
//    while the memo has a style set and TTextAttribute otherwise. Rows that
//    nobody has written to yet share one attribute per fresh state (see
//    FFreshAttributes); a row gets its own object when a caller asks for a
//    writable attribute. Only ClearLine leaves a row without attribute.
// 2. FVisibleCount counts the rows whose Hidden flag is false.
// 3. The ending of a real line is held by the LinefeedCR and LinefeedLF flags
//    of the row after it; the last row has none, the first row's flags mean
//    nothing.
// 4. Every change of the row array, of a row's text or of which attribute a
//    row holds happens under FLock. The background thread reads only under
//    it, through the ...FromThread functions, and keeps what it read alive by
//    shared ownership, never by holding the lock.
// 5. Each running sum over the rows that is built (see FOffsets) matches the
//    rows, once the rows noted in FRowsToRecheck are read again.

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FormatSettings.h"
#include "textstore/InternTable.h"
#include "textstore/LineAttribute.h"
#include "textstore/MemoStringsOwner.h"
#include "textstore/OrlUniUtils.h"
#include "textstore/OrlUnicodeStrings.h"
#include "textstore/RowPartition.h"
#include "textstore/SysTextType.h"
#include "textstore/Utf16FileReader.h"
#include "textstore/WideStringArena.h"

namespace orl {

extern template class TElWideStringListOf<TAttributePtr>;

/// Progress of a load or parse: position and total, (-1, 0) at the end.
using TProgressEvent = std::function<void(int Position, int Total)>;
/// Lets the host choose the code page of a load among the detected ones.
using TDetectCPEvent = std::function<void(unsigned& cp, TElWideStrings& List, std::u16string_view FilePath)>;
/// The host's regular-expression search in one row.
using TRegExMemoFindEvent = TPosRegExFunc;

class TOrlMemoStrings final : public TElWideStringListOf<TAttributePtr> {
public:
  /// `memo` may be null: the store then behaves as a plain list.
  explicit TOrlMemoStrings(IMemoStringsOwner* memo = nullptr);
  ~TOrlMemoStrings() override;

  IMemoStringsOwner* Memo() const { return FMemo; }
  int VisibleCount() const { return FVisibleCount; }
  int LockCount() const { return FLockCount; }
  /// 0 for an empty store and for one whose whole text is one CR LF, else the row count.
  int RealCount() const;

  // Adding rows. Unless said otherwise, a row gets a fresh attribute and
  // counts as visible; "silent" means no Changing and Changed.

  /// With a memo: tabs expanded (not in binary mode), a sorted list's
  /// duplicate rule applied, events, under the lock.
  int Add(std::u16string_view S) override;
  /// Appends S as it is, silently; returns its index.
  int DoAdd(std::u16string_view S);
  /// Inserts at Index (below 0 counts as 0) with tabs expanded, silently.
  void DoInsert(int Index, std::u16string_view S);
  void InsertSilent(int Index, std::u16string_view S) { DoInsert(Index, S); }
  /// With events, text as it is; an Index past the count is ignored.
  void Insert(int Index, std::u16string_view S) override;
  /// Inserts before real line Index, adding empty rows up to it first.
  void InsertLineFromReal(int Index, std::u16string_view ws);
  /// Appends s with A as its attribute, with events.
  void AddLine(std::u16string_view s, TAttributePtr A);
  /// Appends each line of Strings as it is, within one update.
  void AddStrings(const TElWideStrings& Strings) override;
  /// Appends a line cut into rows as the memo lays it out; returns the new count.
  int AddQuickLine(std::u16string_view ws);
  /// The same at Index, padding with empty rows up to it.
  void InsertQuickLine(int Index, std::u16string_view ws);
  /// Writes the line over what stands at Index, reusing its rows; returns the row after the line.
  int PutQuickLine(int Index, std::u16string_view ws);
  /// Room for a paste of nCount rows: nCount - 1 empty rows before Index.
  void PrepareLines(int Index, int nCount);

  // The wrapper's row tools; none expands tabs. Copy(S, x, len) is 1-based.

  void AddWrapped(std::u16string_view S);
  void AddWrappedFirst(std::u16string_view S, const TTextAttribute& A);
  void InsertWrapped(int Index, std::u16string_view S);
  void InsertWrappedFirst(int Index, std::u16string_view S, TAttributePtr A);
  void InsertWrappedBuffer(int Index, std::u16string_view S, int x, int len);
  void InsertWrappedFirstBuffer(int Index, std::u16string_view S, int x, int len, TAttributePtr A);
  /// bCopy is kept for callers: a row never shares a caller's buffer.
  void PutWrapped(int Index, std::u16string_view S, bool bCopy);
  void PutWrappedFirst(int Index, std::u16string_view S, const TTextAttribute* A);
  void PutWrappedBuffer(int Index, std::u16string_view S, int x, int len);
  void PutWrappedFirstBuffer(int Index, std::u16string_view S, int x, int len);

  // Deleting rows. A bad index does nothing.

  /// Keeps the memo's caret on its text; without memo it fires the events.
  void Delete(int Index) override;
  void DoDelete(int Index);
  /// With IncludeWrapped also the continuation rows that follow.
  void DeleteSilent(int Index, bool IncludeWrapped);
  /// Rows startLine to endLine in one move, under the lock.
  void DeleteLinesSilent(int startLine, int endLine, bool IncludeWrapped);
  /// Real line Index with its rows; the store's last row stays.
  void DeleteLineFromReal(int Index);
  /// Empties the row and takes its attribute away; returns it unless bFreeObject.
  TAttributePtr ClearLine(int index, bool bFreeObject);
  /// All rows, without events; capacity 16.
  void Clear() override;
  void ClearQuick() { Clear(); }

  // Replacing text.

  /// Raises for a sorted list or a bad index; silent.
  void Put(int Index, std::u16string_view S) override;
  /// Put with tabs expanded; without memo the list's Put with events.
  void SetLineString(int Index, std::u16string_view S);
  /// SetLineString of the first len characters; without memo the row is also enabled.
  void SetLineBuffer(int Index, std::u16string_view S, int len);
  /// Writes the row, giving it an attribute if it has none.
  void SetAt(int line, std::u16string_view S);
  /// Inserts S before 1-based position index (appends past the end); the new length, 0 for a bad line.
  int InsertAt(int line, std::u16string_view S, int index);
  /// Deletes len characters from position index; the new length, 0 for a bad line.
  int DeleteAt(int line, int index, int len);
  /// Writes S over the row from position index.
  void OverWriteAt(int line, std::u16string_view S, int index);
  /// The Text setter: reuses rows, so that the attributes of unchanged rows stay.
  void SetText(std::u16string_view value) override;
  /// Whole-text parse into rows, with each line's own ending.
  void SetTextStr(std::u16string_view Value) override;
  /// The same without wrap, keeping line marks and bookmarks by row number.
  void SetTextStrSilent(std::u16string_view Value);
  /// The whole text with CR LF between real lines.
  std::u16string GetTextStr() const override;
  /// A UTF-16 file (with a mark, or any file while FSaveUnicode) is split into
  /// rows as it is read, never held whole; other files load as the list does.
  /// Raises EFileError when the file cannot be read.
  void LoadFromFile(const std::filesystem::path& FileName) override;

  /// With a memo: appends Source and lets the memo rebuild; else clears first.
  void Assign(const TElWideStrings& Source) override;
  /// Clears, then appends Source, telling nobody.
  void AssignSilent(const TElWideStrings& Source);

  // Reading. A bad index gives the neutral value named.

  /// "" for a bad index.
  std::u16string Get(int Index) const override;
  /// The row's text, valid until the row changes; "" for a bad index.
  std::u16string_view GetLineString(int index) const;
  /// How many of row `index`'s first `limit` characters take one cell each
  /// in a monospaced font (see TSharedWideString::SimpleCellPrefix).
  size_t SimpleCellPrefix(int index, size_t limit) const;
  int GetLineLength(int Index) const;
  /// 1-based; character 0 outside the row.
  char16_t GetCharAt(int line, int index) const;
  /// len characters from position index, clamped to the row; bTrim strips
  /// blanks, tabs and U+00A0 at both ends.
  std::u16string GetStringAt(int line, int index, int len, bool bTrim) const;
  /// Copies the row into s (grown to its length + 100 if too short); the length.
  int GetBuffer(int Index, std::u16string& s) const;
  const TWideStringItem* GetPointerToListItem(int index) const;
  bool IsLineWrapped(int Index) const { return ReadLineAttribute(Index).Wrapped(); }
  bool GetHiddenLine(int index) const { return ReadLineAttribute(index).Hidden(); }
  /// Every character white space; true for a bad line.
  bool IsLineBlank(int line) const;
  /// No character above 255 and no tab from ns to ne (below 1: to the end).
  bool IsAnsiBetween(int line, int ns, int ne) const;
  bool IsTextComplex(int Line) const;
  /// True when s holds characters that need complex script shaping.
  static bool IsTextComplex(std::u16string_view s);
  /// Both rows exist, are not empty and are equal.
  bool CompareLines(int line1, int line2) const;
  std::u16string GetTabExpanded(int Index) const;
  /// Length with tabs counted to their next stop.
  int GetVisualLength(int line) const;
  /// Copies the row's spell marks; their count.
  int GetSpellList(int Index, TSpellList& aSpellList) const;

  // Searching one row without copying it.

  int WPosAt(int line, std::u16string_view SubStr, int Offset, bool bWildcards = false) const;
  int WNCPosAt(int line, std::u16string_view SubStr, int Offset) const;
  int WRPosAt(int line, std::u16string_view SubStr, int Offset) const;
  int WNCRPosAt(int line, std::u16string_view SubStr, int Offset) const;
  int WTextPosAt(int line, std::u16string_view SubStr, int Offset, int max, bool bLowerCase) const;
  /// Through FOnRegExFind; -1 without a handler or for a bad line.
  int WRegexPosAt(int line, std::u16string_view Pattern, int Offset, bool bCase, int& MatchLen) const;

  // Writing within rows.

  /// Appends the source row's text to the destination row.
  void CopyLineTo(int sourceline, int destline);
  /// Cuts the row's trailing white space (with bSpacesOnly not past a tab); returns what was cut.
  std::u16string RemoveTrailingBlanks(int line, bool bSpacesOnly);
  /// Exchanges text and attribute; events only with bTriggerChanged.
  void SwapLines(int IndexA, int IndexB, bool bTriggerChanged);
  void SetHiddenLine(int index, bool value);
  /// Empties the spell marks of every row.
  void ClearSSA();

  // Attributes.

  /// The row's own attribute, to read and write; for a bad index or a row
  /// without attribute the store's default attribute, reset, which the
  /// caller must neither keep nor write.
  TTextAttribute* GetLineAttribute(int Index);
  /// The row's attribute to read, without giving the row an object of its own.
  const TTextAttribute& ReadLineAttribute(int Index) const;
  /// A copy of the row's attribute, owned by the caller.
  TAttributePtr GetLineAttributeObject(int Index) const;
  /// Writes Value into the row's attribute as the attribute rules say; under the lock.
  void SetLineAttribute(int Index, const TTextAttribute& Value);
  /// Writes the row's scan state, stamped with the current generation, and
  /// lets the row share its attribute with equal rows; under the lock. Main
  /// thread only: a pointer from GetLineAttribute to this row is stale after it.
  void SetLineStyle(int Index, const TStyle& Value);
  /// The same for the background thread, which must not re-point a row
  /// whose attribute the main thread may be writing through a plain pointer:
  /// the row is only noted, and shares at the main thread's next
  /// SetLineStyle or ShareRowsScannedByThread.
  void SetLineStyleFromThread(int Index, const TStyle& Value);
  /// Main thread: the rows the thread scanned share their attributes with
  /// equal rows. The thread's synchronised calls are the place for it.
  void ShareRowsScannedByThread();

  // The scan-state cache. A record with Cached set holds for its row until
  // ClearLineStylesFrom reaches the row; an invalidation is one entry here
  // instead of a write into every following row.

  /// Every record from row `index` on (below 0: 0) stops being valid.
  void ClearLineStylesFrom(int index);
  /// Whether the row's record has Cached set and no later invalidation reached it.
  bool LineStyleValid(int Index) const;
  /// A copy of the row's record with Cached as LineStyleValid says; under the lock.
  TStyle ReadLineStyle(int Index) const;
  /// Invalidations the store holds; old ones fold into the rows' records.
  size_t PendingStyleInvalidations() const { return FStyleInvalidations.size(); }
  /// Swaps the class of every row's attribute (see ConvertAttribute).
  void ConvertAttributes();

  // Display reads.

  /// The row as painted: bShowSpaces dots, bTabExpanded tabs expanded,
  /// bShowLinebreaks a sign where a real line ends and another follows,
  /// bSubCtrl glyphs for control characters. Tab marks are the painter's,
  /// so bShowTabs changes nothing here.
  std::u16string GetVisual(int Index, bool bShowTabs, bool bShowLinebreaks, bool bShowSpaces, bool bTabExpanded,
                           bool bSubCtrl);
  /// The same into s, with the sign of the ending the next row holds; the length.
  int GetVisualBuffer(std::u16string& s, int Index, bool bShowTabs, bool bShowLinebreaks, bool bShowSpaces,
                      bool bTabExpanded, bool bSubCtrl);

  /// Text from (startx, starty) to (endx, endy), columns 1-based and
  /// inclusive, with each real line's ending from the next row's flags.
  std::u16string GetText(int starty, int endy, int startx, int endx, bool bBinaryMode, bool bOnlyCRLF,
                         bool bHexTextData) const;
  /// Characters of aMemo's selection, with line endings if asked.
  int SelectionLength(const IMemoStringsOwner& aMemo, bool bIncludeCRLF, bool bRealCRLF) const;

  // Real lines.

  /// First row of real line Index; the identity while nothing wraps.
  int GetWrapIndex(int Index);
  /// Rows of the real line starting at row `line`.
  int GetWrappedLineCount(int line) const;
  /// Whole text of the real line holding row Index; nLines its rows.
  std::u16string GetUnwrappedLine(int Index, int& nLines) const;
  /// Rows in [from, to) that begin a numbered real line: not Wrapped, and
  /// Enabled (a filler row of text-diff mode has no number).
  int RowsStartingRealLines(int from, int to) const;
  /// Rows in [from, to) that are not continuation rows: each ends the line before it.
  int RowsStartingLines(int from, int to) const;
  /// Rows in [from, to) that no fold hides.
  int ShownRowsIn(int from, int to) const;
  /// The row reached by stepping `count` shown rows from `from` (back when
  /// negative), each step moving one row and counting it when shown;
  /// clamped to the store.
  int StepShownRows(int from, int count) const;

  // Text offsets: rows and line ends counted from the top, 2 per real line
  // end whatever the document's endings (none in binary mode).

  /// Offset of column x (clamped to the row) in row y; y past the end means the last row.
  int64_t GetCharPosFromXY(int x, int y) const;
  /// Row and column of offset pos; with bStartFromXY the walk starts at row y,
  /// whose first character stands at offset nStartPos. Past the end: the last
  /// row and its length less 1.
  void GetXYFromCharPos(int64_t pos, int& x, int& y, bool bStartFromXY, int64_t nStartPos) const;

  // Writing out, in the coding the fields name: FSaveUnicode, FSaveBigUnicode,
  // FSaveUTF, else FCodePage (the low bytes in binary and ASCII mode).

  /// The whole text as one piece, with a mark when FUseBOM; FCurrentStreamPos
  /// is the stream's size afterwards.
  void SaveToStream(TMemoryStream& Stream) override;
  /// The same written row by row, so that a large text is never held twice.
  void SaveTextToStream(TMemoryStream& Stream);

  // Reads of the background thread, each under the lock.

  TSharedWideString GetLineStringFromThread(int index) const;
  int GetCountFromThread() const;
  /// The row's attribute, kept alive for the caller; a throw-away default for a bad index.
  TAttributePtr GetLineAttributeFromThread(int index);
  std::u16string GetUnwrappedLineFromThread(int Index, int& nLines) const;

  /// Allocated bytes of rows, texts and attributes, for memory figures.
  size_t AllocatedBytes() const;

  // Fields the file input and output, the wrapper and the clones work with.

  bool FAddToLastLine = false;    // the next parsed line continues the last row
  bool FAddToStringList = false;  // the parser appends instead of clearing first
  std::vector<IMemoStringsOwner*> FCloneMemoList;
  unsigned FCodePage;
  int64_t FCurrentStreamPos = 0;
  TDateTime FFileDateTime = 0;
  std::u16string FFileName;
  bool FMonitorLogFile = false;
  bool FHasAnnotationPanel = false;
  TDetectCPEvent FOnDetectCP;
  TProgressEvent FOnProgress;
  bool FSaveBigUnicode = false;
  bool FSaveUTF = false;
  bool FSaveCodePage = false;
  TSysTextType FSysTextType = sttWindows;
  bool FUseBOM = false;
  bool FIllegalControlCodes = false;
  bool FInString = false;  // inside a quoted field of a delimited file; lives across chunks
  TRegExMemoFindEvent FOnRegExFind;
  int64_t FSize = 0;
  TDateTime FTempFileDateTime = 0;
  int64_t FTotalHexCount = 0;

protected:
  void SetUpdateState(bool Updating) override;
  void InsertItem(int Index, std::u16string_view S, TAttributePtr AObject) override;
  void RowsReplaced(int Index, int Removed, int Added) override;

private:
  /// What tells apart the attributes that rows nobody wrote to share.
  struct TFreshState {
    bool bFull = false;            // TAttribute rather than TTextAttribute
    TSysTextType TextType = sttWindows;
    uint32_t Flags = 0;            // FBooleanArray bits set on top of a new row's
    int8_t Ending = -1;            // -1: the type's ending; else bit 0 LinefeedCR, bit 1 LinefeedLF
    int ChangeHistory = 0;
    bool operator==(const TFreshState&) const = default;
  };
  struct TFreshEntry {
    TFreshState State;
    TAttributePtr Attribute;
  };

  /// While it lives, the texts of new rows are cut from one arena; nested
  /// bulk operations share the outermost one's.
  class TBulkLoad {
  public:
    explicit TBulkLoad(TOrlMemoStrings& store) : FStore(store), FOuter(store.FBulkArena) {
      if (!FOuter) store.FBulkArena = &FArena;
    }
    ~TBulkLoad() { FStore.FBulkArena = FOuter; }

  private:
    TOrlMemoStrings& FStore;
    TWideStringArena* FOuter;
    TWideStringArena FArena;
  };

  /// The whole text is one CR LF.
  bool TextIsOneLineEnd() const;
  TMemoStoreSettings Settings() const { return FMemo ? FMemo->StoreSettings() : TMemoStoreSettings(); }
  /// S with tabs expanded as the memo wants, in FWST when it changes.
  std::u16string_view Tabbed(std::u16string_view S, const TMemoStoreSettings& settings);
  bool FullAttributes(const TMemoStoreSettings& settings) const { return FMemo && settings.bHasStyles; }

  // Rows.
  TSharedWideString NewText(std::u16string_view S) {
    return FBulkArena ? FBulkArena->Make(S) : TSharedWideString(S);
  }
  void InsertRow(int Index, std::u16string_view S, TAttributePtr A);
  void EraseRows(int Index, int Count);
  void WriteRow(int Index, std::u16string_view S);
  /// Runs `edit` on the row's text under the lock.
  template <class TEdit>
  void EditRow(int Index, TEdit&& edit) {
    std::lock_guard lock(FLock);
    edit(Item(Index).FString);
    RowsReplaced(Index, 1, 1);
  }
  void SubtractVisible(int rows);
  int CountVisibleRows() const;

  // Attributes.
  /// The state of a row that the store makes now, for the class the memo asks for.
  TFreshState NewRowState(const TMemoStoreSettings& settings) const;
  /// The shared attribute of `state`, made on first use.
  TAttributePtr FreshAttribute(const TFreshState& state);
  TAttributePtr NewRowAttribute() { return FreshAttribute(NewRowState(Settings())); }
  /// The row's attribute, first made private if it is shared.
  TTextAttribute* OwnAttribute(int Index);
  /// The row's scan state as one shared record, stamped with the current generation.
  void WriteRowStyle(int Index, TStyle style);
  /// Lets the row hold the shared attribute equal to its own, unless somebody
  /// else (the background thread) holds its attribute too.
  void ShareRowAttribute(int Index);
  /// Drops shared records that no row holds any more.
  void SweepSharedRecords();
  TTextAttribute* ResetNilAttribute();
  static const TTextAttribute& BlankAttribute();
  void SetWrappedFlag(int Index, bool value);

  // Quick family and text setters.
  /// The memo's layout of `ws` into FPieces, made to cover the line exactly.
  void LayOut(std::u16string_view ws, TQuickLineCall call);
  /// Inserts the pieces of FPieces from `row` on: the first as a line's first
  /// row, the others as its continuations.
  void InsertPieces(int row, std::u16string_view ws, const TMemoStoreSettings& settings, const TFreshState& firstRow);
  int AddQuickLineWith(std::u16string_view ws, const TMemoStoreSettings& settings, const TFreshState& firstRow);
  /// A row's marks, noted by row number across a silent parse.
  struct TRowMark {
    int Row;
    bool bLinemark;
    int8_t Bookmark;
  };
  void ParseRows(std::u16string_view Value, bool bSilent);
  void ParseLines(std::u16string_view Value, bool bSilent, const TMemoStoreSettings& settings);
  struct TLineParse;
  /// Adds the rows of the lines in Value; unless bFinal, the last line
  /// stays for the next piece when its end is not in Value. Returns the
  /// characters used.
  size_t ParsePiece(std::u16string_view Value, bool bFinal, TLineParse& parse);
  void ReportParseProgress(TLineParse& parse, size_t pos);
  /// The empty row after a final ending, the document's type, the memo's figures.
  void FinishParse(const TLineParse& parse);
  /// Splits a UTF-16 file into rows piece by piece.
  void LoadUtf16File(TUtf16FileReader& reader);
  std::vector<TRowMark> NoteMarks() const;
  void RestoreMarks(const std::vector<TRowMark>& marks);
  bool IsDelimitedFile(const TMemoStoreSettings& settings) const;

  // Reads.
  /// The painted row into s; bOneSign shows every ending by the same sign.
  /// Writes the enabled rows with their endings, encoding every `chunk` characters or more.
  void WriteRows(TMemoryStream& Stream, size_t chunk);
  int VisualInto(std::u16string& s, int Index, bool bShowLinebreaks, bool bShowSpaces, bool bTabExpanded,
                 bool bSubCtrl, bool bOneSign);
  void AppendRange(std::u16string* out, size_t& length, int starty, int endy, int startx, int endx,
                   bool bBinaryMode, bool bOnlyCRLF, bool bHexTextData) const;

  // Running sums over the rows (RowPartition.h). Each is built when first
  // asked for and from then on follows every change of the rows: texts and
  // the row array directly, attribute flags through the rows whose attribute
  // was handed out for writing, which are re-read before the next question.
  enum TRowCount : uint8_t { rcLineStarts, rcRealLines, rcShown, rcCounts };
  int CountIn(TRowCount which, int from, int to) const;
  /// Characters of the row plus 2 for the line end before it, if it starts a real line.
  int64_t OffsetValue(int row, bool bBinary) const;
  int CountValue(TRowCount which, int row) const;
  const TRowPartition<int64_t>& Offsets(bool bBinary) const;
  const TRowPartition<int>& Counts(TRowCount which) const;
  /// 2 when the row starts a real line, for the line end before it; 0 in binary mode.
  int LineEndBefore(int row, bool bBinary) const;
  /// Offset of row y's first character.
  int64_t RowStart(int y, bool bBinary) const;
  /// The row's attribute may be written: its counts are re-read before the next question.
  void NoteAttributeWrite(int row);
  void RecheckRows() const;
  void RecheckRow(int row) const;
  void DropPartitions() const;
  bool AnyPartitionBuilt() const;

  mutable TRowPartition<int64_t> FOffsets;
  mutable bool FOffsetsBinary = false;
  mutable std::array<TRowPartition<int>, rcCounts> FCounts;
  mutable std::vector<int> FRowsToRecheck;

  IMemoStringsOwner* FMemo;
  std::u16string FWST;  // scratch for tab expansion
  int FLockCount = 0;
  int FVisibleCount = 0;
  TAttributePtr FNilAttribute;
  std::vector<TFreshEntry> FFreshAttributes;

  struct TStyleTraits {
    static size_t Hash(const TStyle& s) { return s.Hash(); }
    static bool Same(const TStyle& a, const TStyle& b) { return a == b && a.Generation == b.Generation; }
    static long Holders(const TStyleRef& r) { return r.use_count(); }
  };
  struct TAttributeTraits {
    static size_t Hash(const TTextAttribute& a) { return a.Hash(); }
    static bool Same(const TTextAttribute& a, const TTextAttribute& b) { return a.SameAs(b); }
    static uint32_t Holders(const TAttributePtr& p) { return p.UseCount(); }
  };
  // Rows share their scan states and, where equal, their whole attributes.
  TInternTable<TStyleRef, TStyleTraits> FStyleRecords;
  TInternTable<TAttributePtr, TAttributeTraits> FSharedAttributes;
  std::vector<int> FRowsScannedByThread;  // to share on the main thread
  size_t FLastFresh = 0;  // the entry found last: rows in a row mostly share one
  TWideStringArena* FBulkArena = nullptr;
  std::vector<int> FPieces;  // scratch of the quick family's layouts

  /// One ClearLineStylesFrom: records stamped before Generation are invalid from row From on.
  struct TStyleInvalidation {
    uint64_t Generation;
    int From;
  };
  bool StampStillValid(uint64_t stamp, int Index) const;
  /// Writes what the invalidations say into the rows' Cached bits and forgets them.
  void FoldStyleInvalidations();
  uint64_t FStyleGeneration = 0;
  // Generations and rows both rise from bottom to top: an invalidation from a
  // row covers every older one from that row or below it.
  std::vector<TStyleInvalidation> FStyleInvalidations;
};

} // namespace orl
