// Comments, strings, numbers, keyword groups and blocks of the JavaScript definition.
// <- comment
//           ^^^^^^^^^^^^^^^^ comment
import fs from "node:fs";
// <- keyword.Keywords
//        ^^^^ keyword.Keywords
//             ^^^^^^^^^ string
const big = 1_000_000 + 0xFF + .5 + 2e3; // sizes
// <- keyword.Keywords
//    ^^^ text
//          ^^^^^^^^^ number
//                      ^^^^ number
//                              ^ number
//                                  ^^^ number
//                    ^ symbol
//                                       ^^^^^^^^ comment
let s = 'it\'s' + "say \"hi\"";
//      ^^^^^^^ char
//                ^^^^^^^^^^^^ string
class Point { #x = 0; static of() { return new Point(); } }
// <- keyword.Keywords
//    ^^^^^ text
//            ^^ keyword.#PrivateName
//                    ^^^^^^ keyword.Keywords
//                                  ^^^^^^ keyword.Keywords
//                                         ^^^ keyword.Keywords
const re = /ab+c\/d/gi, half = size / 2;
//         ^^^^^^^^^^^ block.#RegExp
//                                    ^ number
const msg = `total ${big} // not a comment
still the template` ; console.log(msg, undefined, Math.PI);
// <- block.#TemplateString
//        ^^^^^^^^^ block.#TemplateString
//                  ^ symbol
//                    ^^^^^^^ keyword.Browser
//                                     ^^^^^^^^^ keyword.Constants
//                                                ^^^^ keyword.Objects
//                                ^^^^ !keyword
/* a block
   comment */ if (typeof x === "number" && NaN) require("x");
// <- comment
// ^^^^^^^^^^ comment
//            ^^ keyword.Keywords
//                ^^^^^^ keyword.Keywords
//                                         ^^^ keyword.Constants
//                                              ^^^^^^^ keyword.NodeJS
//                                                      ^^^ string
interface Shape {} setTimeout(parseInt("08", 10));
// <- keyword.Reserved
//                 ^^^^^^^^^^ keyword.Functions
//                            ^^^^^^^^ keyword.Functions
//                                           ^^ number
IF (True) Await();
// <- !keyword
//  ^^^^ !keyword
//        ^^^^^ !keyword
