#!/usr/bin/env python3
"""Checks the default theme's palette (host/src/theme.cpp) and prints the
figures quoted in docs/theme.md.

- WCAG 2 contrast ratio of each element's text colour on its fill (and on the
  end colour of a gradient).
- For the sixteen category swatches: the smallest pairwise colour difference
  (CIE76 delta E in CIELAB, D65) in normal vision and under simulated
  protanopia, deuteranopia and tritanopia (Machado, Oliveira and Fernandes
  2009, severity 1.0, applied to linear RGB), plus the smallest RGB distance.

Usage: tools/swatch_check.py [path/to/theme.cpp]
"""
import os
import re
import sys

VIEWS = {
    "normal": [[1, 0, 0], [0, 1, 0], [0, 0, 1]],
    "protanopia": [[0.152286, 1.052583, -0.204868], [0.114503, 0.786281, 0.099216],
                   [-0.003882, -0.048116, 1.051998]],
    "deuteranopia": [[0.367322, 0.860646, -0.227968], [0.280085, 0.672501, 0.047413],
                     [-0.011820, 0.042940, 0.968881]],
    "tritanopia": [[1.255528, -0.076749, -0.178779], [-0.078411, 0.930809, 0.147602],
                   [0.004733, 0.691367, 0.303900]],
}


def linear(c):
    c /= 255.0
    return c / 12.92 if c <= 0.04045 else ((c + 0.055) / 1.055) ** 2.4


def luminance(rgb):
    r, g, b = (linear(v) for v in rgb)
    return 0.2126 * r + 0.7152 * g + 0.0722 * b


def contrast(a, b):
    la, lb = sorted((luminance(a), luminance(b)), reverse=True)
    return (la + 0.05) / (lb + 0.05)


def lab(r, g, b):
    x = 0.4124564 * r + 0.3575761 * g + 0.1804375 * b
    y = 0.2126729 * r + 0.7151522 * g + 0.0721750 * b
    z = 0.0193339 * r + 0.1191920 * g + 0.9503041 * b
    f = lambda t: t ** (1 / 3) if t > 0.008856 else 7.787 * t + 16 / 116
    fx, fy, fz = f(x / 0.95047), f(y), f(z / 1.08883)
    return (116 * fy - 16, 500 * (fx - fy), 200 * (fy - fz))


def seen(rgb, matrix):
    lin = [linear(v) for v in rgb]
    out = [min(1.0, max(0.0, sum(matrix[i][j] * lin[j] for j in range(3)))) for i in range(3)]
    return lab(*out)


def dist(a, b):
    return sum((x - y) ** 2 for x, y in zip(a, b)) ** 0.5


def parse(path):
    text = open(path, encoding="utf-8").read()
    hexes = lambda s: [tuple(int(h[i:i + 2], 16) for i in (0, 2, 4)) for h in re.findall(r"Hex\(0x([0-9A-Fa-f]{6})\)", s)]
    elements = []
    for m in re.finditer(r"\{ (HYTHEME_\w+),\s*\{ (HYSTYLE_\w+),[^}]*\} \}", text):
        cols = hexes(m.group(0))
        elements.append((m.group(1), cols))
    block = text[text.index("kSwatches[HYSWATCH_COUNT]"):]
    block = block[:block.index("};")]
    swatches = [(int(n), (int(h[0:2], 16), int(h[2:4], 16), int(h[4:6], 16)), name.strip())
                for h, n, name in re.findall(r"Hex\(0x([0-9A-Fa-f]{6})\),\s*//\s*(\d+)\s+([^\n:]*)", block)]
    return elements, swatches


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    path = sys.argv[1] if len(sys.argv) > 1 else os.path.join(here, "..", "host", "src", "theme.cpp")
    elements, swatches = parse(path)
    print("Element text contrast (WCAG 2):")
    for name, cols in elements:
        fill, fill_end, text = cols[0], cols[1], cols[2]
        print("  %-22s fill #%02X%02X%02X text #%02X%02X%02X  %.2f:1" % ((name,) + fill + text + (contrast(text, fill),))
              + ("" if fill_end == fill else "  (gradient end %.2f:1)" % contrast(text, fill_end)))
    assert len(swatches) == 16, "expected 16 swatches, found %d" % len(swatches)
    print("Swatches: smallest pairwise delta E (CIE76) per view")
    worst_overall = None
    for view, m in VIEWS.items():
        labs = [seen(rgb, m) for _, rgb, _ in swatches]
        best = min((dist(labs[i], labs[j]), i, j) for i in range(16) for j in range(i + 1, 16))
        d, i, j = best
        print("  %-13s %5.1f  (swatches %d %s and %d %s)" % (view, d, swatches[i][0], swatches[i][2], swatches[j][0], swatches[j][2]))
        worst_overall = d if worst_overall is None else min(worst_overall, d)
    rgbmin = min((dist(swatches[i][1], swatches[j][1]), i, j) for i in range(16) for j in range(i + 1, 16))
    print("  smallest RGB distance %.1f (swatches %d and %d)" % (rgbmin[0], swatches[rgbmin[1]][0], swatches[rgbmin[2]][0]))
    print("  smallest over all views: %.1f" % worst_overall)
    return 0


if __name__ == "__main__":
    sys.exit(main())
