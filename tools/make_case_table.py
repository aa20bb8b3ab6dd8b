#!/usr/bin/env python3
"""Writes base/case_table.inc: Unicode's simple case mappings as ranges.

Each range says that every step-th code point from first to last maps to itself plus delta. Python
knows the full mappings, some of which give several code points; the simple ones are what is left
when only single code points count. Run it after a change of Python's Unicode version:

    tools/make_case_table.py > base/case_table.inc
"""

import sys
import unicodedata

DOTTED_CAPITAL_I = "\u0130"  # the one letter whose full lower case has two code points


def upper(c):
    # Greek letters with iota below have a two-letter upper case; their title case is the simple one.
    if len(c.upper()) == 1:
        return c.upper()
    return c.title() if len(c.title()) == 1 else c


def lower(c):
    return "i" if c == DOTTED_CAPITAL_I else c.lower()


def fold(c):
    if c == DOTTED_CAPITAL_I:
        return c
    return c.casefold() if len(c.casefold()) == 1 else lower(c)


def mappings(function):
    """The pairs (code point, delta) that change under a function, in order."""
    for code in range(0x80, sys.maxunicode + 1):
        if 0xD800 <= code <= 0xDFFF:
            continue
        mapped = function(chr(code))
        assert len(mapped) == 1
        if ord(mapped) != code:
            yield code, ord(mapped) - code


def ranges(pairs):
    """Joins neighbours one or two apart that share a delta into [first, last, step, delta]."""
    rows = []
    for code, delta in pairs:
        row = rows[-1] if rows else None
        gap = code - row[1] if row else 0
        if row and row[3] == delta and (gap == row[2] or (row[0] == row[1] and gap <= 2)):
            row[1], row[2] = code, gap
        else:
            rows.append([code, code, 1, delta])
    return rows


def main():
    print(f"// Made by tools/make_case_table.py from Unicode {unicodedata.unidata_version}; don't edit.")
    print("// {first, last, step, delta}")
    for name, function in (("upper", upper), ("lower", lower), ("fold", fold)):
        print(f"\nconstexpr CaseRange {name}Ranges[] = {{")
        for first, last, step, delta in ranges(mappings(function)):
            print(f"    {{0x{first:04X}, 0x{last:04X}, {step}, {delta}}},")
        print("};")


main()
