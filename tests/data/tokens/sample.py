# A small Python sample
import os

@decorator
def greet(name: str, count=3) -> None:
    """A docstring
    over two lines."""
    path = r"C:\temp\new"
    text = 'it\'s %d' % count
    value = 0xFF + 1_000 + 2.5
    if name is not None and count > 0:
        print(f"Hello {name}")  # trailing comment
    return __name__

class Thing(Exception):
    '''single quoted
    triple'''
    pass
