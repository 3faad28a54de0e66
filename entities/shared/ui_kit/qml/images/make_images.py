#!/usr/bin/env python3
"""Makes the images that are drawn from others: run it after a change of one in sources/.

- loader_big.svg, loader_small.svg: rows of frames from the drawing of one, which turns clockwise
  once in a row. The sheets "@2x" have frames of twice the size, for screens with a scale factor.
- logo_big.png: the picture of sources/logo_big.svg, which is made of polylines alone.
"""

import math
import pathlib
import re
import struct
import xml.etree.ElementTree as xml
import zlib

HERE = pathlib.Path(__file__).parent
FRAMES = {"loader_big": 20, "loader_small": 8}


def make_sheet(name, scale, suffix):
    drawing = (HERE / "sources" / f"{name}.svg").read_text()
    attributes, shapes = re.fullmatch(r'<svg [^>]*viewBox="[^"]*" ([^>]*)>\n(.*)</svg>\n', drawing,
                                      re.DOTALL).groups()
    side = int(re.search(r'width="(\d+)"', drawing).group(1))
    count = FRAMES[name]
    lines = [
        f'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink"'
        f' width="{count * side * scale}" height="{side * scale}"'
        f' viewBox="0 0 {count * side} {side}" {attributes}>',
        '  <g id="frame">',
        *("  " + line for line in shapes.splitlines()),
        "  </g>",
    ]
    for index in range(1, count):
        turn = f"rotate({360 * index / count:g} {side / 2:g} {side / 2:g})"
        lines.append(f'  <use xlink:href="#frame" transform="translate({index * side} 0) {turn}"/>')
    (HERE / f"{name}{suffix}.svg").write_text("\n".join(lines + ["</svg>", ""]))


def read_strokes(path):
    """Gives the size and each polyline as points, half its width and its colour."""
    root = xml.parse(path).getroot()
    half = float(root.get("stroke-width")) / 2
    strokes = []
    for line in root:
        points = [tuple(map(float, pair.split(","))) for pair in line.get("points").split()]
        strokes.append((points, half, bytes.fromhex(line.get("stroke")[1:])))
    return int(root.get("width")), int(root.get("height")), strokes


def distance(x, y, start, end):
    along, across = end[0] - start[0], end[1] - start[1]
    part = ((x - start[0]) * along + (y - start[1]) * across) / (along ** 2 + across ** 2)
    part = min(1, max(0, part))
    return math.hypot(x - start[0] - part * along, y - start[1] - part * across)


def pixel(x, y, strokes):
    """The strokes do not touch one another unless they have one colour: no blending is needed."""
    color, coverage = bytes(3), 0
    for points, half, stroke_color in strokes:
        nearest = min(distance(x, y, start, end) for start, end in zip(points, points[1:]))
        # A pixel is a unit wide: its share under the edge grows from 0 to 1 along that unit.
        share = min(1, max(0, half - nearest + 0.5))
        if share > coverage:
            color, coverage = stroke_color, share
    return color + bytes([round(255 * coverage)])


def make_png(name):
    width, height, strokes = read_strokes(HERE / "sources" / f"{name}.svg")
    rows = (b"\0" + b"".join(pixel(x + 0.5, y + 0.5, strokes) for x in range(width))
            for y in range(height))

    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(
            ">I", zlib.crc32(kind + data))

    header = struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0)
    (HERE / f"{name}.png").write_bytes(
        b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header)
        + chunk(b"IDAT", zlib.compress(b"".join(rows), 9)) + chunk(b"IEND", b""))


if __name__ == "__main__":
    for sheet in FRAMES:
        make_sheet(sheet, 1, "")
        make_sheet(sheet, 2, "@2x")
    make_png("logo_big")
