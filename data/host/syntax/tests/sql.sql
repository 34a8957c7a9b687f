-- Comments, strings, numbers, keyword groups and blocks of the SQL definition.
-- <- comment
--           ^^^^^^^^^^^^^^^^ comment
CREATE TABLE "Order Lines" (id INT PRIMARY KEY, name VARCHAR(40));
-- <- keyword.Keywords
--     ^^^^^ keyword.Keywords
--           ^^^^^^^^^^^^^ block.QuotedIdentifier
--                             ^^^ keyword.Types
--                                                   ^^^^^^^ keyword.Types
--                                                           ^^ number
--                         ^ symbol
select count(*), 'it''s' from [dbo].[items] where qty >= 0x1F and price < 2.50; -- case
-- <- keyword.Keywords
--     ^^^^^ keyword.Functions
--               ^^^^^^^ string
--                       ^^^^ keyword.Keywords
--                            ^^^^^ block.#BracketIdentifier
--                                          ^^^^^ keyword.Keywords
--                                                       ^^^^ number
--                                                                        ^^^^ number
--                                                                              ^^^^^^^ comment
/* outer /* nested */ still comment */ SELECT NULL, `tick`, @total;
-- <- comment
--                    ^^^^^^^^^^^^^^^^ comment
--                                     ^^^^^^ keyword.Keywords
--                                            ^^^^ keyword.Constants
--                                                  ^^^^^^ block.BacktickIdentifier
--                                                          ^^^^^^ block.Variable
--                                                                ^ symbol
SELECT arr[1] FROM t;
--        ^^^ !block
