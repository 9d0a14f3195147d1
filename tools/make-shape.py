#!/usr/bin/env python3
"""make-shape.py SHAPE.tsv OUT.bin

Turns a list of rectangles (left, top, right, bottom in pixels, one a line) into region
data: the system's RGNDATA record, a header of 32 bytes with the bounding box, then the
rectangles. A list that is out of order or overlaps is refused.
"""
import struct
import sys


def read(path):
    rectangles = []
    with open(path, encoding="ascii") as source:
        for number, line in enumerate(source, 1):
            try:
                left, top, right, bottom = map(int, line.split("\t"))
            except ValueError:
                sys.exit(f"{path}:{number}: four numbers with tabs between them are wanted")
            if left >= right or top >= bottom:
                sys.exit(f"{path}:{number}: a rectangle without an inside")
            if rectangles:
                _, last_top, last_right, last_bottom = rectangles[-1]
                same_row = (top, bottom) == (last_top, last_bottom) and left > last_right
                if not same_row and top < last_bottom:
                    sys.exit(f"{path}:{number}: not below or right of the rectangle before it")
            rectangles.append((left, top, right, bottom))
    if not rectangles:
        sys.exit(f"{path}: no rectangles")
    return rectangles


def main():
    source, target = sys.argv[1:]
    rectangles = read(source)
    box = (min(r[0] for r in rectangles), min(r[1] for r in rectangles),
           max(r[2] for r in rectangles), max(r[3] for r in rectangles))
    header_size, kind = 32, 1  # RDH_RECTANGLES
    block = struct.pack("<4I4i", header_size, kind, len(rectangles), 16 * len(rectangles), *box)
    block += b"".join(struct.pack("<4i", *r) for r in rectangles)
    with open(target, "wb") as out:
        out.write(block)


main()
