<?php
// Comments, strings, numbers, keyword groups and blocks of the PHP definition.
// <- comment
//           ^^^^^^^^^^^^^^^^ comment
# a comment of the second kind
// <- comment
//                 ^^^^^^^^^^^ comment
function greet(string $name, int $times = 0x0A): ?array {
// <- keyword.Keywords
//       ^^^^^ text
//             ^^^^^^ keyword.Types
//                    ^^^^^ keyword.#Variable
//                           ^^^ keyword.Types
//                                        ^^^^ number
//                                                ^^^^^ keyword.Types
    $total = 1_500 + 2.5e3 + strlen($name) + COUNT([]);
//  ^^^^^^ keyword.#Variable
//           ^^^^^ number
//                   ^^^^^ number
//                           ^^^^^^ keyword.Functions
//                                           ^^^^^ keyword.Functions
//                 ^ symbol
    echo "Hello $name\n" . 'it\'s' . PHP_EOL; /* inline */ return null;
//  ^^^^ keyword.Keywords
//       ^^^^^^^^^^^^^^^ string
//                         ^^^^^^^ char
//                                   ^^^^^^^ keyword.Constants
//                                            ^^^^^^^^^^^^ comment
//                                                         ^^^^^^ keyword.Keywords
//                                                                ^^^^ keyword.Types
    $out = `ls -l`; throw new Exception("no");
//         ^^^^^^^ block.ShellExec
//                  ^^^^^ keyword.Keywords
//                            ^^^^^^^^^ keyword.Classes
//                                      ^^^^ string
    $doc = <<<EOT
//         ^^^^^^ string
    Hello $name, "quotes" and /* no comment */
//  ^^^^^^^^^^^ string
//               ^^^^^^^^ string
//                            ^^^^^^^^^^^^^^^^ string
    EOT;
    $after = 1;
//  ^^^^^^ keyword.#Variable
//           ^ number
}
/* a block comment
   over lines */ $x = true;
// <- comment
//      ^^^^^^^^ comment
//                    ^^^^ keyword.Types
