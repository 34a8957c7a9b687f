// Comments, strings, numbers, keyword groups and blocks of the Pascal definition.
// <- comment
//           ^^^^^^^^^^^^^^^^ comment
program Demo;
// <- keyword.Reserved
//      ^^^^ text
{ a brace comment } (* a paren
// <- comment
//  ^^^^^^^^^^^^^^^ comment
//                  ^^^^^^^^^^ comment
   comment over lines *) var
// <- comment
//              ^^^^^^^^ comment
//                       ^^^ keyword.Reserved
  Count: Integer = $FF + 1_000 + 2.5;
//^^^^^ !keyword
//       ^^^^^^^ keyword.Types
//                 ^^^ number
//                       ^^^^^ number
//                               ^^^ number
//     ^ symbol
  Text = '''
    a multi-line string with { no comment }
//  ^^^^^^^^^^^^ block.#MultiLineString
//                           ^^^^^^^^^^^^^^ block.#MultiLineString
    '''; Pi2 = 6.28;
//  ^^^ block.#MultiLineString
//     ^ symbol
//             ^^^^ number
  IID: TGUID = ['{00000000-0000-0000-C000-000000000046}'];
//             ^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^^ block.#GUID
BEGIN
// <- keyword.Reserved
  WriteLn('it''s ', #13#10, Count, True, nil); // done
//^^^^^^^ keyword.Routines
//        ^^^^^^^^ string
//                  ^^^^^^ block.CharCode
//                                 ^^^^ keyword.Constants
//                                       ^^^ keyword.Reserved
//                                             ^^^^^^^ comment
  if Count > 0 then Inc(Count) else Exit;
//^^ keyword.Reserved
//             ^^^^ keyword.Reserved
//                  ^^^ keyword.Routines
//         ^ symbol
procedure Draw; virtual; abstract; overload; stdcall;
//              ^^^^^^^ keyword.Directives
//                       ^^^^^^^^ keyword.Directives
//                                 ^^^^^^^^ keyword.Directives
//                                           ^^^^^^^ keyword.Directives
end.
// <- keyword.Reserved
