// A small Pascal sample
program Sample;
{ brace comment
  over two lines }
(* paren comment *)
const
  Limit = $FF;
  Name = 'it''s';
  Crlf = #13#10;
var
  i: Integer;
  Guid: TGUID = ['{00000000-0000-0000-0000-000000000000}'];
begin
  for i := 1 to 1_000 do
    WriteLn(Name, i * 2.5);
  S := '''
multi-line
''';
end.
