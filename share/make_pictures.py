#!/usr/bin/env python3
"""Draws the program's pictures from their SVG sources: icons, hand pointer, drag pointer, splash,
the ticks of the skins.

Run it after a change to a source; it needs Python alone. It supports the part of SVG that the sources use:
paths of absolute M, L, C and Z, solid or vertical-gradient fills, strokes (always with round ends), groups.
"""
import math
import pathlib
import struct
import xml.etree.ElementTree as ElementTree
import zlib

HERE = pathlib.Path(__file__).resolve().parent
ICON_SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
WINDOWS_SIZES = (16, 24, 32, 48, 64, 256)
HAND_TIP = (11, 2)  # pixels; the hot spot
TICKS = {"harbour": "#16283a", "paper": "#2a2114"}  # each skin's
TICK_SIZE = 64      # pixels; skins shrink it to the size of their type
SUB_ROWS = 8        # scan lines per pixel row; within a scan line coverage is exact


def colour(text):
    return tuple(int(text[i:i + 2], 16) for i in (1, 3, 5))


def flatten(data):
    """A path's data as polylines, with 16 chords for a curve."""
    words = data.replace(",", " ").split()
    lines, at = [], 0
    while at < len(words):
        command, at = words[at], at + 1
        if command == "Z":
            lines[-1].append(lines[-1][0])
            continue
        count = {"M": 1, "L": 1, "C": 3}[command]
        numbers = [float(word) for word in words[at:at + 2 * count]]
        at += 2 * count
        points = list(zip(numbers[::2], numbers[1::2]))
        if command == "M":
            lines.append(points)
        elif command == "L":
            lines[-1] += points
        else:
            start = lines[-1][-1]
            for step in range(1, 17):
                t = step / 16
                weights = ((1 - t) ** 3, 3 * t * (1 - t) ** 2, 3 * t * t * (1 - t), t ** 3)
                lines[-1].append(tuple(sum(w * p[axis] for w, p in zip(weights, [start] + points))
                                       for axis in (0, 1)))
    return lines


def stroked(lines, width):
    """Polygons whose union is the stroke: a rectangle for every chord, a disc for every joint."""
    half, polygons = width / 2, []
    for line in lines:
        for x, y in line:
            polygons.append([(x + half * math.cos(a * math.pi / 12), y + half * math.sin(a * math.pi / 12))
                             for a in range(24)])
        for (x1, y1), (x2, y2) in zip(line, line[1:]):
            length = math.hypot(x2 - x1, y2 - y1)
            if length:
                nx, ny = half * (y1 - y2) / length, half * (x2 - x1) / length
                # The same winding direction as the discs, or overlaps would cancel each other out.
                polygons.append([(x1 - nx, y1 - ny), (x2 - nx, y2 - ny), (x2 + nx, y2 + ny), (x1 + nx, y1 + ny)])
    return polygons


def shapes(path):
    """The source's size and its polygons with their colours (top, bottom, y of top, y of bottom), in order."""
    root = ElementTree.parse(path).getroot()
    names = {element: element.tag.rsplit("}", 1)[-1] for element in root.iter()}
    gradients = {}
    for element in root.iter():
        if names[element] == "linearGradient":
            top, bottom = (colour(stop.get("stop-color")) for stop in element)
            gradients[f"url(#{element.get('id')})"] = (top, bottom, float(element.get("y1")), float(element.get("y2")))
    found = []

    def paint(text):
        return gradients.get(text) or (colour(text), colour(text), 0.0, 1.0)

    def visit(element, inherited):
        values = {**inherited, **{key: element.get(key) for key in ("fill", "stroke", "stroke-width")
                                  if element.get(key)}}
        if names[element] == "path":
            lines = flatten(element.get("d"))
            if values.get("fill", "none") != "none":
                found.append((lines, paint(values["fill"])))
            if values.get("stroke", "none") != "none":
                found.append((stroked(lines, float(values["stroke-width"])), paint(values["stroke"])))
        for child in element:
            visit(child, values)

    visit(root, {})
    return float(root.get("width")), float(root.get("height")), found


def coverage(polygons, scale, width, row):
    """The part of every pixel of a row, 0 to 1, that the polygons cover (winding number not 0)."""
    covered = [0.0] * width
    for sub in range(SUB_ROWS):
        y = (row + (sub + 0.5) / SUB_ROWS) / scale
        crossings = []
        for polygon in polygons:
            for (x1, y1), (x2, y2) in zip(polygon, polygon[1:] + polygon[:1]):
                if (y1 <= y) != (y2 <= y):
                    crossings.append(((x1 + (y - y1) * (x2 - x1) / (y2 - y1)) * scale, 1 if y2 > y1 else -1))
        crossings.sort()
        winding = 0
        for (left, turn), (right, _) in zip(crossings, crossings[1:]):
            winding += turn
            if winding:
                left, right = max(left, 0.0), min(right, float(width))
                for x in range(int(left), min(int(math.ceil(right)), width)):
                    covered[x] += max(min(right, x + 1) - max(left, x), 0.0)
    return [min(value / SUB_ROWS, 1.0) for value in covered]


def render(source, size=None):
    """The picture as rows of (red, green, blue, alpha). `size` is its width in pixels."""
    source_width, source_height, found = shapes(source)
    scale = (size or source_width) / source_width
    width, height = round(source_width * scale), round(source_height * scale)
    bounds = [(min(p[1] for line in lines for p in line), max(p[1] for line in lines for p in line))
              for lines, _ in found]
    picture = []
    for row in range(height):
        pixels = [(0.0, 0.0, 0.0, 0.0)] * width  # premultiplied
        for (polygons, (top, bottom, y1, y2)), (low, high) in zip(found, bounds):
            if not low * scale - 1 < row < high * scale + 1:
                continue
            share = min(max(((row + 0.5) / scale - y1) / (y2 - y1), 0.0), 1.0)
            ink = [a + (b - a) * share for a, b in zip(top, bottom)]
            for x, part in enumerate(coverage(polygons, scale, width, row)):
                if part:
                    red, green, blue, alpha = pixels[x]
                    rest = 1 - part
                    pixels[x] = (red * rest + ink[0] * part, green * rest + ink[1] * part,
                                 blue * rest + ink[2] * part, alpha * rest + part)
        picture.append([tuple(round(c / p[3]) for c in p[:3]) + (round(p[3] * 255),) if p[3] else (0, 0, 0, 0)
                        for p in pixels])
    return picture


def png(picture):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    rows = b"".join(b"\0" + bytes(value for pixel in row for value in pixel) for row in picture)
    header = struct.pack(">IIBBBBB", len(picture[0]), len(picture), 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b"")


def bitmap(picture):
    """The form in icon files: rows from the bottom up, the mask after the pixels, the height doubled."""
    width, height = len(picture[0]), len(picture)
    pixels, mask = b"", b""
    for row in reversed(picture):
        pixels += b"".join(bytes((blue, green, red, alpha)) for red, green, blue, alpha in row)
        bits = "".join("0" if pixel[3] else "1" for pixel in row)
        bits += "1" * (-width % 32)
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    return struct.pack("<IiiHHIIiiII", 40, width, 2 * height, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0) + pixels + mask


def icon(pictures, hot_spot=None):
    """An icon file, or a pointer file if `hot_spot` is given."""
    blocks = [png(p) if len(p) >= 256 else bitmap(p) for p in pictures]
    data = struct.pack("<HHH", 0, 2 if hot_spot else 1, len(blocks))
    offset = len(data) + 16 * len(blocks)
    for picture, block in zip(pictures, blocks):
        data += struct.pack("<BBBBHHII", len(picture[0]) % 256, len(picture) % 256, 0, 0, *(hot_spot or (1, 32)),
                            len(block), offset)
        offset += len(block)
    return data + b"".join(blocks)


def write(name, data):
    path = HERE / name
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(data)


def main():
    source = HERE / "icons/brindlewick.svg"
    icons = {size: render(source, size) for size in ICON_SIZES}
    for size, picture in icons.items():
        write(f"icons/hicolor/{size}x{size}/apps/brindlewick.png", png(picture))
    write("icons/brindlewick.ico", icon([icons[size] for size in WINDOWS_SIZES]))
    write("HAND-M.CUR", icon([render(HERE / "drawings/hand.svg")], HAND_TIP))
    write("drag.ico", icon([render(HERE / "drawings/drag.svg")]))
    tick = render(HERE / "drawings/tick.svg", TICK_SIZE)
    for skin, ink in TICKS.items():
        write(f"skins/{skin}-tick.png", png([[(*colour(ink), pixel[3]) for pixel in row] for row in tick]))
    write("Splash/Brindlewick.png", png(render(HERE / "drawings/splash.svg")))


if __name__ == "__main__":
    main()
