# Comments, strings, numbers, keyword groups and blocks of the Python definition.
# <- comment
#           ^^^^^^^^^^^^^^^^ comment
import os
# <- keyword.Keywords
#      ^^ text
@dataclass(frozen=True, order=True)
# <- keyword.#Decorator
#^^^^^^^^^ keyword.#Decorator
class Point(Base):
# <- keyword.Keywords
#     ^^^^^ text
    """A docstring # not a comment
    over two lines."""
#   ^^^^^^^^ block.TripleDouble
#                  ^^^ block.TripleDouble
    def __init__(self, x=0x1F, y=1_000.5e-3):
#   ^^^ keyword.Keywords
#       ^^^^^^^^ keyword.#Dunder
#                ^^^^ keyword.Self
#                        ^^^^ number
#                                ^^^^^^^ number
#                       ^ symbol
        self.path = r"C:\temp\" + 'it\'s' + "tab\t"  # trailing
#       ^^^^ keyword.Self
#                    ^^^^^^^^^^ string
#                               ^ symbol
#                                 ^^^^^^^ char
#                                           ^^^^^^^ string
#                                                    ^^^^^^^^^^ comment
        return None if len(x) else print(True, cls, ValueError)
#       ^^^^^^ keyword.Keywords
#              ^^^^ keyword.Constants
#                      ^^^ keyword.Builtins
#                                  ^^^^^ keyword.Builtins
#                                        ^^^^ keyword.Constants
#                                              ^^^ keyword.Self
#                                                   ^^^^^^^^^^ keyword.Exceptions
match command:
# <- keyword.SoftKeywords
    case '''single''': pass
#   ^^^^ keyword.SoftKeywords
#        ^^^^^^^^^^^^ block.TripleSingle
#                      ^^^^ keyword.Keywords
NONE = none
# <- !keyword
#      ^^^^ !keyword
