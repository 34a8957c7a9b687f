#pragma once
// The host's script language as completion sees it: its objects with their
// members and its built-in routines, each by its Pascal signature. The name is
// what a signature holds before its first "(", "[" or ":".

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace orl::script {

enum TMemberKind : uint8_t { mkProperty, mkMethod };

struct TScriptMember {
  TMemberKind Kind;
  std::u16string_view Signature;
};

struct TScriptObject {
  std::u16string_view Name;
  std::span<const TScriptMember> Members;
};

inline constexpr std::array<TScriptMember, 29> kDocumentMembers{{
    {mkMethod, u"CursorLeft(bSelect: Boolean)"},
    {mkMethod, u"CursorRight(bSelect: Boolean)"},
    {mkMethod, u"CursorUp(bSelect: Boolean)"},
    {mkMethod, u"CursorDown(bSelect: Boolean)"},
    {mkMethod, u"CursorHome(bSelect: Boolean)"},
    {mkMethod, u"CursorEnd(bSelect: Boolean)"},
    {mkMethod, u"WordLeft(bSelect: Boolean)"},
    {mkMethod, u"WordRight(bSelect: Boolean)"},
    {mkMethod, u"PageUp(bSelect: Boolean)"},
    {mkMethod, u"PageDown(bSelect: Boolean)"},
    {mkMethod, u"GotoLine(nLine: Integer)"},
    {mkMethod, u"SelectAll"},
    {mkMethod, u"InsertText(const s: string)"},
    {mkMethod, u"DeleteChar"},
    {mkMethod, u"Backspace"},
    {mkMethod, u"DeleteLine"},
    {mkMethod, u"GetLine(nLine: Integer): string"},
    {mkMethod, u"SetLine(nLine: Integer; const s: string)"},
    {mkMethod, u"Find(const s: string; bCase, bWholeWord: Boolean): Boolean"},
    {mkMethod, u"Undo"},
    {mkMethod, u"Save: Boolean"},
    {mkMethod, u"SaveAs(const FileName: string): Boolean"},
    {mkProperty, u"Text: string"},
    {mkProperty, u"SelText: string"},
    {mkProperty, u"CurX: Integer"},
    {mkProperty, u"CurY: Integer"},
    {mkProperty, u"LineCount: Integer"},
    {mkProperty, u"FileName: string"},
    {mkProperty, u"Modified: Boolean"},
}};

inline constexpr std::array<TScriptMember, 11> kMainAppMembers{{
    {mkMethod, u"OpenFile(const FileName: string): Boolean"},
    {mkMethod, u"NewDocument"},
    {mkMethod, u"CloseDocument: Boolean"},
    {mkMethod, u"CloseAll: Boolean"},
    {mkMethod, u"SaveAll: Boolean"},
    {mkMethod, u"DocumentFileName(nIndex: Integer): string"},
    {mkMethod, u"MessageBox(const Text, Caption: string; nFlags: Integer): Integer"},
    {mkProperty, u"ActiveDocument: Integer"},
    {mkProperty, u"DocumentCount: Integer"},
    {mkProperty, u"AppFolder: string"},
    {mkProperty, u"StatusText: string"},
}};

inline constexpr std::array<TScriptMember, 11> kWStringsMembers{{
    {mkMethod, u"Add(const s: string): Integer"},
    {mkMethod, u"Insert(nIndex: Integer; const s: string)"},
    {mkMethod, u"Delete(nIndex: Integer)"},
    {mkMethod, u"Clear"},
    {mkMethod, u"IndexOf(const s: string): Integer"},
    {mkMethod, u"Sort"},
    {mkMethod, u"LoadFromFile(const FileName: string)"},
    {mkMethod, u"SaveToFile(const FileName: string)"},
    {mkProperty, u"Count: Integer"},
    {mkProperty, u"Strings[nIndex: Integer]: string"},
    {mkProperty, u"Text: string"},
}};

inline constexpr std::array<TScriptMember, 9> kScriptUtilsMembers{{
    {mkMethod, u"FileExists(const FileName: string): Boolean"},
    {mkMethod, u"DirectoryExists(const Dir: string): Boolean"},
    {mkMethod, u"ForceDirectories(const Dir: string): Boolean"},
    {mkMethod, u"DeleteFile(const FileName: string): Boolean"},
    {mkMethod, u"ReadTextFile(const FileName: string): string"},
    {mkMethod, u"WriteTextFile(const FileName, Text: string)"},
    {mkMethod, u"RunProgram(const FileName, Params: string; bWait: Boolean): Integer"},
    {mkMethod, u"ShellOpen(const FileName: string): Boolean"},
    {mkProperty, u"ClipboardText: string"},
}};

inline constexpr std::array<TScriptObject, 4> kObjects{{
    {u"Document", kDocumentMembers},
    {u"MainApp", kMainAppMembers},
    {u"WStrings", kWStringsMembers},
    {u"ScriptUtils", kScriptUtilsMembers},
}};

// Grouped as conversion, strings and file names, arithmetic, dates, dialogs, variants.
inline constexpr std::array<std::u16string_view, 75> kRoutines{
    u"IntToStr(i: Integer): string",
    u"IntToHex(Value: Integer; Digits: Integer): string",
    u"StrToInt(const s: string): Integer",
    u"StrToIntDef(const s: string; Default: Integer): Integer",
    u"FloatToStr(e: Extended): string",
    u"StrToFloat(const s: string): Extended",
    u"FormatFloat(const Format: string; Value: Extended): string",
    u"BoolToStr(b: Boolean): string",
    u"StrToBool(const s: string): Boolean",
    u"Chr(i: Integer): Char",
    u"Ord(ch: Char): Integer",

    u"Copy(const s: string; Index, Count: Integer): string",
    u"Pos(const SubStr, s: string): Integer",
    u"Delete(var s: string; Index, Count: Integer)",
    u"Insert(const SubStr: string; var s: string; Index: Integer)",
    u"Length(const s: string): Integer",
    u"SetLength(var s: string; NewLength: Integer)",
    u"UpperCase(const s: string): string",
    u"LowerCase(const s: string): string",
    u"Trim(const s: string): string",
    u"TrimLeft(const s: string): string",
    u"TrimRight(const s: string): string",
    u"Format(const Fmt: string; const Args: array of const): string",
    u"StringReplace(const s, OldPattern, NewPattern: string; Flags: TReplaceFlags): string",
    u"CompareText(const s1, s2: string): Integer",
    u"CompareStr(const s1, s2: string): Integer",
    u"QuotedStr(const s: string): string",
    u"StringOfChar(ch: Char; Count: Integer): string",
    u"ExtractFileName(const FileName: string): string",
    u"ExtractFilePath(const FileName: string): string",
    u"ExtractFileExt(const FileName: string): string",
    u"ChangeFileExt(const FileName, Extension: string): string",

    u"Abs(e: Extended): Extended",
    u"Round(e: Extended): Integer",
    u"Trunc(e: Extended): Integer",
    u"Int(e: Extended): Extended",
    u"Frac(e: Extended): Extended",
    u"Sqrt(e: Extended): Extended",
    u"Sin(e: Extended): Extended",
    u"Cos(e: Extended): Extended",
    u"ArcTan(e: Extended): Extended",
    u"Exp(e: Extended): Extended",
    u"Ln(e: Extended): Extended",
    u"Power(Base, Exponent: Extended): Extended",
    u"Pi: Extended",
    u"Random: Extended",
    u"Randomize",
    u"Inc(var i: Integer)",
    u"Dec(var i: Integer)",

    u"Date: TDateTime",
    u"Time: TDateTime",
    u"Now: TDateTime",
    u"DateToStr(e: TDateTime): string",
    u"TimeToStr(e: TDateTime): string",
    u"DateTimeToStr(e: TDateTime): string",
    u"StrToDate(const s: string): TDateTime",
    u"StrToTime(const s: string): TDateTime",
    u"StrToDateTime(const s: string): TDateTime",
    u"FormatDateTime(const Fmt: string; DateTime: TDateTime): string",
    u"EncodeDate(Year, Month, Day: Word): TDateTime",
    u"DecodeDate(const Date: TDateTime; var Year, Month, Day: Word)",
    u"EncodeTime(Hour, Min, Sec, MSec: Word): TDateTime",
    u"DecodeTime(const Time: TDateTime; var Hour, Min, Sec, MSec: Word)",
    u"DayOfWeek(const Date: TDateTime): Integer",
    u"IncMonth(const Date: TDateTime; NumberOfMonths: Integer): TDateTime",
    u"IsLeapYear(Year: Word): Boolean",

    u"ShowMessage(const Msg: string)",
    u"InputBox(const ACaption, APrompt, ADefault: string): string",
    u"InputQuery(const ACaption, APrompt: string; var Value: string): Boolean",
    u"MessageDlg(const Msg: string; DlgType: TMsgDlgType; Buttons: TMsgDlgButtons; HelpCtx: Longint): Integer",

    u"VarType(const V: Variant): Integer",
    u"VarIsNull(const V: Variant): Boolean",
    u"VarToStr(const V: Variant): string",
    u"VarArrayHighBound(const A: Variant; Dim: Integer): Integer",
    u"VarArrayCreate(const Bounds: array of Integer; VarType: Integer): Variant",
};

constexpr size_t MemberCount() {
  size_t count = 0;
  for (const TScriptObject& object : kObjects) count += object.Members.size();
  return count;
}

// Hosts number the script hints 1 to 135, members object by object, then the
// routines: a member or routine added here has to replace another.
inline constexpr size_t kHintCount = 135;
static_assert(MemberCount() + kRoutines.size() == kHintCount);

} // namespace orl::script
