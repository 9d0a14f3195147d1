#!/usr/bin/env python3
"""make-pictures.py SVGS OUT: draws the SVG sources at 100, 125, 150 and 200 %.

Writes to the folder OUT one file NAME.pic for each picture (src/controls/Picture.cpp tells
its form), app.ico, and pictures.rc that lists them. Sources that differ only in a square
size behind a hyphen (opt-font-16, opt-font-32) are one picture with both drawings. A source
without a size is drawn for 13 pixels; its larger twin (-20) serves above 100 %.
"""

import concurrent.futures
import os
import pathlib
import re
import struct
import subprocess
import sys
import zlib

SCALES = (100, 125, 150, 200)


def render(source, width, height):
    """PNG bytes of the drawing at that size."""
    command = ["rsvg-convert", "-w", str(width), "-h", str(height), str(source)]
    return subprocess.run(command, check=True, capture_output=True).stdout


def pixels_of(png):
    """Blue, green, red, alpha, multiplied by alpha, of a picture with 8 bits a channel."""
    at, packed, width, height, size = 8, b"", 0, 0, 4
    while at < len(png):
        length, kind = struct.unpack(">I4s", png[at : at + 8])
        body = png[at + 8 : at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colours = struct.unpack(">IIBB", body[:10])
            assert depth == 8 and colours in (2, 6), "RGB or RGBA is expected"
            size = 3 if colours == 2 else 4  # a picture without holes comes without alpha
        elif kind == b"IDAT":
            packed += body
        at += 12 + length
    raw, stride, out, before = zlib.decompress(packed), width * size, [], bytearray(width * size)
    for row in range(height):
        start = row * (stride + 1)
        how, line = raw[start], bytearray(raw[start + 1 : start + 1 + stride])
        for i in range(stride):
            left = line[i - size] if i >= size else 0
            up, corner = before[i], before[i - size] if i >= size else 0
            if how == 1:
                line[i] = (line[i] + left) & 255
            elif how == 2:
                line[i] = (line[i] + up) & 255
            elif how == 3:
                line[i] = (line[i] + (left + up) // 2) & 255
            elif how == 4:
                guess = left + up - corner
                _, _, near = min((abs(guess - v), n, v) for n, v in enumerate((left, up, corner)))
                line[i] = (line[i] + near) & 255
        for x in range(0, stride, size):
            red, green, blue, alpha = line[x : x + size] if size == 4 else (*line[x : x + 3], 255)
            out.append(bytes((v * alpha + 127) // 255 for v in (blue, green, red)) + bytes((alpha,)))
        before = line
    return out


def packed_runs(pixels):
    out, at = bytearray(), 0
    while at < len(pixels):
        run = 1
        while run < 255 and at + run < len(pixels) and pixels[at + run] == pixels[at]:
            run += 1
        out += bytes((run,)) + pixels[at]
        at += run
    return bytes(out)


def logical_size(source):
    found = re.search(r'<svg[^>]* width="(\d+)" height="(\d+)"', source.read_text(encoding="utf-8"))
    return int(found[1]), int(found[2])


def versions(sources):
    """(logical width, logical height, source, pixel width, pixel height) of one picture."""
    plain = [s for s in sources if not re.search(r"-\d+(x\d+)?$", s.stem)]
    if plain:
        width, height = logical_size(plain[0])
        large = next(s for s in sources if s is not plain[0])
        for scale in SCALES:
            side = (width * scale + 50) // 100, (height * scale + 50) // 100
            yield (width, height, plain[0] if scale == 100 else large, *side)
        return
    for source in sources:
        width, height = logical_size(source)
        for scale in SCALES:
            yield (width, height, source, (width * scale + 50) // 100, (height * scale + 50) // 100)


def picture(sources):
    told = list(versions(sources))
    out = b"ZPIC" + struct.pack("<H", len(told))
    for width, height, source, across, down in told:
        runs = packed_runs(pixels_of(render(source, across, down)))
        out += struct.pack("<HHHH", width, height, across, down) + runs
    return out


def icon(sources):
    """The program's icon: PNG pictures in an .ico."""
    sources = sorted(sources, key=logical_size)
    images = [render(s, *logical_size(s)) for s in sources]
    at = 6 + 16 * len(images)
    out = struct.pack("<HHH", 0, 1, len(images))
    for source, image in zip(sources, images):
        side = logical_size(source)[0] & 255  # 256 is told as 0
        out += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(image), at)
        at += len(image)
    return out + b"".join(images)


def main():
    folder, out = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    out.mkdir(parents=True, exist_ok=True)
    groups = {}
    for source in sorted(folder.glob("*.svg")):
        groups.setdefault(re.sub(r"-\d+$", "", source.stem), []).append(source)
    app = groups["app"]
    groups["app"] = [s for s in app if logical_size(s)[0] < 256]
    with concurrent.futures.ThreadPoolExecutor(min(4, os.cpu_count() or 1)) as pool:
        for name, content in zip(groups, pool.map(picture, groups.values())):
            (out / f"{name}.pic").write_bytes(content)
    (out / "app.ico").write_bytes(icon(app))
    lines = [f'{name} PICTURE "{name}.pic"\n' for name in groups]
    (out / "pictures.rc").write_text('1 ICON "app.ico"\n' + "".join(lines), encoding="utf-8")


main()
