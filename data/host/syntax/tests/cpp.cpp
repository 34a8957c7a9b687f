// Comments, strings, numbers, keyword groups and blocks of the C++ definition.
// <- comment
//        ^^^^^^^^ comment

#include <vector>
// <- keyword.#Preprocessor
// ^^^^^ keyword.#Preprocessor
//       ^ symbol
//        ^^^^^^ keyword.StdLibrary
  #  define LIMIT 10
//^^^^^^^^^ keyword.#Preprocessor
//                ^^ number

int main() { return 0x1F; }
// <- keyword.Types
//  ^^^^ text
//      ^^ symbol
//         ^ symbol
//           ^^^^^^ keyword.Keywords
//                  ^^^^ number
//                      ^ symbol

const char* s = "a \" b // not a comment"; // tail
// <- keyword.Keywords
//    ^^^^ keyword.Types
//              ^^^^^^^^^^^^^^^^^^^^^^^^^ string
//                    ^^ !comment
//                                       ^ symbol
//                                         ^^^^^^^ comment
char c = 'x', d = '\'';
//       ^^^ char
//                ^^^^ char
//                    ^ symbol

long n = 1'000'000 + 3.14e10 - 0XFF;
//       ^^^^^^^^^ number !char
//                   ^^^^^^^ number
//                             ^^^^ number

/* a block comment
   that spans lines */ int after;
// <- comment
//                ^^^^ comment
//                     ^^^ keyword.Types
/* one line */ bool flag = true and nullptr;
// <- comment
//          ^^ comment
//             ^^^^ keyword.Types
//                         ^^^^ keyword.Constants
//                              ^^^ keyword.Operators
//                                  ^^^^^^^ keyword.Constants

[[nodiscard]] size_t count();
// <- block.Attribute
//^^^^^^^^^ keyword.Attributes
//            ^^^^^^ keyword.Types

auto raw = R"x(a "quoted" // \n)x";
//         ^^^^^^^^^^^^^^^^^^^^^^^ block.#RawString
//                              ^ !symbol
auto wide = u8R"(text)";
//          ^^^^^^^^^^^ block.#RawString

std::printf("%d", INT);
// <- keyword.StdLibrary
//   ^^^^^^ keyword.CFunctions
//                ^^^ !keyword
