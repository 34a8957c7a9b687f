-- A small SQL sample
/* block comment /* nested */ still comment */
SELECT u.name, COUNT(*) AS total, "Quoted Id", [Bracketed]
FROM users u
WHERE u.age >= 18 AND u.city = 'O''Brien'
  AND u.score > 0x1A
  AND @limit < 100;
INSERT INTO log VALUES ('multi
line', NULL);
