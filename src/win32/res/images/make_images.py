#!/usr/bin/env python3
"""Makes the module's bitmaps and its icon from the SVG sources beside this script.

Needs rsvg-convert (Debian: librsvg2-bin). Bitmaps have 32 bits a pixel with straight alpha, as image lists take them.
The results are kept in the repository, so that a build needs neither this script nor its tools.
"""

import struct
import subprocess
import zlib
from pathlib import Path

HERE = Path(__file__).resolve().parent

BITMAPS = ["ready", "unchanged", "pending", "empty", "same_name", "existing_name", "invalid"]
# Below 32 pixels a drawing of its own keeps the strokes whole.
ICON_SIZES = [(16, "icon_small"), (20, "icon_small"), (24, "icon_small"), (32, "icon"), (48, "icon"), (256, "icon")]
SIZE_OF_PNG_IN_ICON = 256


def rendered_png(name: str, size: int) -> bytes:
    command = ["rsvg-convert", "--width", str(size), "--height", str(size), str(HERE / f"{name}.svg")]
    return subprocess.run(command, check=True, capture_output=True).stdout


def png_rows(png: bytes) -> list[bytes]:
    """The rows of an 8-bit RGBA picture, top to bottom."""
    position, width, packed = 8, 0, b""
    while position < len(png):
        length, kind = struct.unpack(">I4s", png[position:position + 8])
        chunk = png[position + 8:position + 8 + length]
        position += 12 + length
        if kind == b"IHDR":
            width, _, depth, colour = struct.unpack(">IIBB", chunk[:10])
            assert (depth, colour) == (8, 6), "8-bit RGBA expected"
        elif kind == b"IDAT":
            packed += chunk
    filtered, stride = zlib.decompress(packed), width * 4
    rows, above = [], bytes(stride)
    for start in range(0, len(filtered), stride + 1):
        above = unfiltered(filtered[start], filtered[start + 1:start + 1 + stride], above)
        rows.append(above)
    return rows


def unfiltered(kind: int, line: bytes, above: bytes) -> bytes:
    row = bytearray(line)
    for i, value in enumerate(row):
        left = row[i - 4] if i >= 4 else 0
        corner = above[i - 4] if i >= 4 else 0
        row[i] = (value + (0, left, above[i], (left + above[i]) // 2, paeth(left, above[i], corner))[kind]) & 0xFF
    return bytes(row)


def paeth(left: int, above: int, corner: int) -> int:
    estimate = left + above - corner
    return min((left, above, corner), key=lambda value: abs(estimate - value))


def bgra_bottom_up(rows: list[bytes]) -> bytes:
    pixels = bytearray()
    for row in reversed(rows):
        for i in range(0, len(row), 4):
            pixels += bytes((row[i + 2], row[i + 1], row[i], row[i + 3]))
    return bytes(pixels)


def info_header(width: int, height: int, size: int) -> bytes:
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, 32, 0, size, 0, 0, 0, 0)


def bitmap_file(rows: list[bytes]) -> bytes:
    pixels = bgra_bottom_up(rows)
    offset = 14 + 40
    return (struct.pack("<2sIHHI", b"BM", offset + len(pixels), 0, 0, offset)
            + info_header(len(rows[0]) // 4, len(rows), len(pixels)) + pixels)


def icon_image(size: int, source: str) -> bytes:
    png = rendered_png(source, size)
    if size >= SIZE_OF_PNG_IN_ICON:
        return png
    rows = png_rows(png)
    mask_stride = (size + 31) // 32 * 4
    mask = bytearray()
    for row in reversed(rows):
        bits = bytearray(mask_stride)
        for x in range(size):
            if row[x * 4 + 3] == 0:
                bits[x // 8] |= 0x80 >> (x % 8)
        mask += bits
    pixels = bgra_bottom_up(rows) + bytes(mask)
    return info_header(size, size * 2, len(pixels)) + pixels


def icon_file() -> bytes:
    images = [(size, icon_image(size, source)) for size, source in ICON_SIZES]
    directory = struct.pack("<HHH", 0, 1, len(images))
    offset = 6 + 16 * len(images)
    for size, image in images:
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return directory + b"".join(image for _, image in images)


def main() -> None:
    for name in BITMAPS:
        (HERE / f"status_{name}.bmp").write_bytes(bitmap_file(png_rows(rendered_png(f"status_{name}", 16))))
    (HERE / "icon.ico").write_bytes(icon_file())


if __name__ == "__main__":
    main()
