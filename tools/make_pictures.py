#!/usr/bin/env python3
"""Draws HyUI's bitmaps and cursors pixel by pixel and writes them to
hyui/resources/. The output files are committed; the build never runs this.

    python3 tools/make_pictures.py [output folder]

Every picture is drawn for 96 DPI, one design pixel per screen pixel, with
no smoothing. Bitmaps are drawn transparently by the host: magenta
(255, 0, 255) is the see-through colour and every picture's top-left pixel
has it.
"""
import os
import struct
import sys

KEY = (255, 0, 255)

# The 16-colour palette of 4-bit bitmaps, in the system's usual order.
VGA16 = [
    (0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0),
    (0, 0, 128), (128, 0, 128), (0, 128, 128), (192, 192, 192),
    (128, 128, 128), (255, 0, 0), (0, 255, 0), (255, 255, 0),
    (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255),
]


def palette256():
    """A full 8-bit palette: the 16 colours above, a 6x6x6 colour cube and a
    grey ramp."""
    pal = list(VGA16)
    steps = (0, 51, 102, 153, 204, 255)
    pal += [(r, g, b) for r in steps for g in steps for b in steps]
    pal += [(v * 255 // 23, v * 255 // 23, v * 255 // 23) for v in range(24)]
    return pal[:256]


def art(rows, colours):
    """Turns rows of characters into rows of RGB tuples."""
    width = len(rows[0])
    out = []
    for row in rows:
        if len(row) != width:
            raise ValueError("ragged picture row: %r" % row)
        out.append([colours[c] for c in row])
    return out


def bmp_bytes(pixels, bits):
    """A BMP file (file header, BITMAPINFOHEADER, palette, bottom-up rows)."""
    height = len(pixels)
    width = len(pixels[0])
    if bits == 24:
        pal = []
    else:
        pal = VGA16 if bits == 4 else palette256()
    stride = ((width * bits + 31) // 32) * 4
    data = bytearray()
    for row in reversed(pixels):
        line = bytearray()
        if bits == 24:
            for (r, g, b) in row:
                line += bytes((b, g, r))
        elif bits == 8:
            line += bytes(pal.index(p) for p in row)
        else:
            idx = [pal.index(p) for p in row]
            if len(idx) % 2:
                idx.append(0)
            line += bytes((idx[i] << 4) | idx[i + 1] for i in range(0, len(idx), 2))
        line += bytes(stride - len(line))
        data += line
    palette = b"".join(bytes((b, g, r, 0)) for (r, g, b) in pal)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, len(data),
                       3780, 3780, len(pal) if pal else 0, 0)
    offset = 14 + len(info) + len(palette)
    head = struct.pack("<2sIHHI", b"BM", offset + len(data), 0, 0, offset)
    return head + info + palette + bytes(data)


def rle8_bmp_bytes(pixels, resource_size):
    """A BMP file in 8-bit run-length encoding whose resource (the file
    without its 14-byte file header) is exactly resource_size bytes. The
    colour table holds the picture's colours first, then the rest of the
    8-bit palette; the size is met by the number of table entries and by
    splitting runs (every split costs two bytes). Decoders read the result
    as any RLE8 bitmap."""
    height = len(pixels)
    used = []
    for row in pixels:
        for p in row:
            if p not in used:
                used.append(p)
    rows = []                                  # bottom-up rows of [index, count] runs
    for row in reversed(pixels):
        runs = []
        for p in row:
            i = used.index(p)
            if runs and runs[-1][0] == i and runs[-1][1] < 255:
                runs[-1][1] += 1
            else:
                runs.append([i, 1])
        rows.append(runs)
    minimum = sum(2 * len(r) + 2 for r in rows)          # runs, end-of-line / end-of-bitmap
    splittable = sum(c - 1 for r in rows for _, c in r)  # each split adds 2 bytes
    for entries in range(256, len(used) - 1, -1):
        extra = resource_size - 40 - 4 * entries - minimum
        if extra >= 0 and extra % 2 == 0 and extra // 2 <= splittable:
            break
    else:
        raise ValueError("no RLE8 layout gives %d bytes" % resource_size)
    splits = extra // 2
    data = bytearray()
    for n, runs in enumerate(rows):
        for index, count in runs:
            while count > 1 and splits > 0:     # split the run pixel by pixel
                data += bytes((1, index))
                count -= 1
                splits -= 1
            data += bytes((count, index))
        data += bytes((0, 1 if n == height - 1 else 0))
    table = (used + palette256())[:entries]   # repeated colours are harmless
    palette = b"".join(bytes((b, g, r, 0)) for (r, g, b) in table)
    info = struct.pack("<IiiHHIIiiII", 40, len(pixels[0]), height, 1, 8, 1, len(data),
                       3780, 3780, entries, 0)
    assert len(info) + len(palette) + len(data) == resource_size
    offset = 14 + len(info) + len(palette)
    head = struct.pack("<2sIHHI", b"BM", offset + len(data), 0, 0, offset)
    return head + info + palette + bytes(data)


def cur_bytes(shape, hotspot):
    """A 32 x 32 monochrome cursor: the shape in black, a one-pixel white
    outline around it, everything else see-through."""
    size = 32
    black = set(shape)
    white = set()
    for (x, y) in black:
        for dx in (-1, 0, 1):
            for dy in (-1, 0, 1):
                p = (x + dx, y + dy)
                if p not in black and 0 <= p[0] < size and 0 <= p[1] < size:
                    white.add(p)
    xor_rows = []
    and_rows = []
    for y in range(size):
        xor_bits = 0
        and_bits = 0
        for x in range(size):
            bit = 1 << (31 - x)
            if (x, y) in white:
                xor_bits |= bit          # AND 0, XOR 1: white
            elif (x, y) not in black:
                and_bits |= bit          # AND 1, XOR 0: see-through
        xor_rows.append(struct.pack(">I", xor_bits))
        and_rows.append(struct.pack(">I", and_bits))
    image = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 1, 0, size * size // 4,
                        0, 0, 2, 0)
    image += bytes((0, 0, 0, 0, 255, 255, 255, 0))
    image += b"".join(reversed(xor_rows)) + b"".join(reversed(and_rows))
    head = struct.pack("<HHH", 0, 2, 1)
    entry = struct.pack("<BBBBHHII", size, size, 0, 0, hotspot[0], hotspot[1],
                        len(image), 6 + 16)
    return head + entry + image


# ---- The pictures -----------------------------------------------------------

def note():
    """A yellow memo sheet with a folded corner and written lines."""
    return art([
        "................",
        "..kkkkkkkkkk....",
        "..kwwwwwwwwkk...",
        "..kwyyyyyyykgk..",
        "..kwyyyyyyykkkk.",
        "..kwyyyyyyyyyyk.",
        "..kwyggggggyyyk.",
        "..kwyyyyyyyyyyk.",
        "..kwyggggggggyk.",
        "..kwyyyyyyyyyyk.",
        "..kwyggggggggyk.",
        "..kwyyyyyyyyyyk.",
        "..kwyggggyyyyyk.",
        "..kwyyyyyyyyyyk.",
        "..kkkkkkkkkkkkk.",
        "................",
    ], {".": KEY, "k": (0, 0, 0), "w": (255, 255, 255), "y": (255, 255, 0),
        "g": (128, 128, 128)})


def padlock():
    """A closed padlock: grey shackle, golden body, dark keyhole."""
    return art([
        "............",
        "....kkkk....",
        "...kssssk...",
        "..ksk..ksk..",
        "..ksk..ksk..",
        "..ksk..ksk..",
        ".kkkkkkkkkk.",
        ".kwyyyyyyok.",
        ".kwyykkyyok.",
        ".kwyykkyyok.",
        ".kwyyykyyok.",
        ".kwyyykyyok.",
        ".kooooooook.",
        ".kkkkkkkkkk.",
        "............",
    ], {".": KEY, "k": (0, 0, 0), "s": (192, 192, 192), "w": (255, 255, 255),
        "y": (255, 255, 0), "o": (128, 128, 0)})


def check_mark():
    """A bold black tick."""
    return art([
        "........",
        "......kk",
        ".....kkk",
        "k...kkk.",
        "kk.kkk..",
        "kkkkk...",
        ".kkk....",
        "..k.....",
    ], {".": KEY, "k": (0, 0, 0)})


def button_placeholder():
    """A framed landscape: what a picture button shows before it has a
    picture or a caption."""
    w, h = 40, 32
    frame = (64, 64, 64)
    mat = (255, 255, 255)
    sky = (166, 202, 240)
    sun = (255, 208, 0)
    hill_far = (96, 160, 96)
    hill_near = (32, 112, 48)
    px = [[KEY] * w for _ in range(h)]
    # The frame: a one-pixel dark border with square corners one pixel in.
    left, top, right, bottom = 1, 2, w - 2, h - 3
    for y in range(top, bottom + 1):
        for x in range(left, right + 1):
            edge = x in (left, right) or y in (top, bottom)
            inner = x in (left + 1, right - 1) or y in (top + 1, bottom - 1)
            px[y][x] = frame if edge else (mat if inner else sky)
    # Drop shadow at the right and bottom.
    for y in range(top + 1, bottom + 2):
        px[y][right + 1] = (128, 128, 128)
    for x in range(left + 1, right + 2):
        px[bottom + 1][x] = (128, 128, 128)
    pic_l, pic_t, pic_r, pic_b = left + 2, top + 2, right - 2, bottom - 2
    # The sun: a disc of radius 3 centred at (29, 9).
    for y in range(pic_t, pic_b + 1):
        for x in range(pic_l, pic_r + 1):
            if (x - 29) ** 2 + (y - 9) ** 2 <= 10:
                px[y][x] = sun
    # Two hills, the far one first.
    for x in range(pic_l, pic_r + 1):
        far_top = 17 + abs(x - 13) // 2
        near_top = 21 + abs(x - 29) // 3
        for y in range(pic_t, pic_b + 1):
            if y >= near_top:
                px[y][x] = hill_near
            elif y >= far_top:
                px[y][x] = hill_far
    return px


def resize_width_shape():
    """Two upright bars with arrows pointing left and right; centred on
    (16, 16)."""
    pts = set()
    for y in range(9, 24):
        for x in (13, 14, 18, 19):
            pts.add((x, y))
    for x in range(3, 13):
        pts.add((x, 16))
    for x in range(20, 30):
        pts.add((x, 16))
    for i in range(5):               # arrow heads, tips at x = 3 and x = 29
        for y in range(16 - i, 17 + i):
            pts.add((3 + i, y))
            pts.add((29 - i, y))
    return pts


def resize_height_shape():
    """The same cursor turned upright: bars lying flat, arrows up and down."""
    return {(y, x) for (x, y) in resize_width_shape()}


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "hyui", "resources")
    files = {
        "note.bmp": bmp_bytes(note(), 4),
        "padlock.bmp": bmp_bytes(padlock(), 4),
        # These two are run-length encoded: their resources are 1142 and
        # 3490 bytes, which no uncompressed layout reaches (docs/startup.md).
        "check_mark.bmp": rle8_bmp_bytes(check_mark(), 1142),
        "button_placeholder.bmp": rle8_bmp_bytes(button_placeholder(), 3490),
        "resize_width.cur": cur_bytes(resize_width_shape(), (16, 16)),
        "resize_height.cur": cur_bytes(resize_height_shape(), (16, 16)),
    }
    for name, data in files.items():
        with open(os.path.join(out, name), "wb") as f:
            f.write(data)
        print("%-24s %5d bytes" % (name, len(data)))


if __name__ == "__main__":
    main()
