#!/usr/bin/env python3
"""Draws the pixmaps of the plug-in: ./draw_icons.py FOLDER [NAME...]

Every icon is a short list of shapes on a square of 24 units, y down. Shapes are painted one over the other, with
4 by 4 samples a pixel. `.png` files are 48 pixels wide and keep their soft edges; `.xpm` files are 32 pixels wide,
with edges that are there or not. Needs nothing but Python.
"""

import math
import struct
import sys
import zlib
from pathlib import Path

INK, STEEL, PALE, WHITE = (52, 66, 77), (120, 138, 150), (214, 223, 229), (255, 255, 255)
BLUE, LIGHT_BLUE, DEEP_BLUE = (30, 116, 198), (150, 199, 240), (18, 78, 140)
SLATE, FADED = (96, 130, 158), (140, 158, 172)  # plain strokes, to be seen on light and on dark ground
ORANGE, GREEN, RED, YELLOW = (232, 135, 30), (47, 158, 68), (214, 69, 69), (246, 201, 69)


# Shapes: functions of x and y that tell whether a point is inside.

def circle(cx, cy, r):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def ring(cx, cy, r, width, start=0.0, sweep=360.0):
    """Part of a ring, from `start` degrees (0 right, 90 down) over `sweep` degrees."""
    def inside(x, y):
        d = math.hypot(x - cx, y - cy)
        if abs(d - r) > width / 2:
            return False
        return (math.degrees(math.atan2(y - cy, x - cx)) - start) % 360.0 <= sweep
    return inside


def rect(x0, y0, x1, y1, round_=0.0):
    def inside(x, y):
        dx = max(x0 + round_ - x, x - (x1 - round_), 0.0)
        dy = max(y0 + round_ - y, y - (y1 - round_), 0.0)
        return x0 <= x <= x1 and y0 <= y <= y1 and dx * dx + dy * dy <= round_ * round_ + 1e-9
    return inside


def frame(x0, y0, x1, y1, width, round_=0.0):
    outer = rect(x0, y0, x1, y1, round_)
    inner = rect(x0 + width, y0 + width, x1 - width, y1 - width, max(round_ - width, 0.0))
    return lambda x, y: outer(x, y) and not inner(x, y)


def line(x0, y0, x1, y1, width):
    length = (x1 - x0) ** 2 + (y1 - y0) ** 2

    def inside(x, y):
        t = min(max(((x - x0) * (x1 - x0) + (y - y0) * (y1 - y0)) / length, 0.0), 1.0)
        return math.hypot(x - x0 - t * (x1 - x0), y - y0 - t * (y1 - y0)) <= width / 2
    return inside


def chain(points, width):
    parts = [line(*a, *b, width) for a, b in zip(points, points[1:])]
    return lambda x, y: any(part(x, y) for part in parts)


def polygon(*points):
    def inside(x, y):
        odd = False
        for (x0, y0), (x1, y1) in zip(points, points[1:] + points[:1]):
            if (y0 > y) != (y1 > y) and x < x0 + (y - y0) * (x1 - x0) / (y1 - y0):
                odd = not odd
        return odd
    return inside


def arrow_head(x, y, degrees, size):
    """Triangle with its tip at x, y, pointing along `degrees`."""
    a = math.radians(degrees)
    bx, by = x - size * math.cos(a), y - size * math.sin(a)
    nx, ny = -math.sin(a) * size * 0.62, math.cos(a) * size * 0.62
    return polygon((x, y), (bx + nx, by + ny), (bx - nx, by - ny))


# Motifs: lists of (shape, colour).

def cube(cx, cy, r, light=LIGHT_BLUE, mid=BLUE, dark=DEEP_BLUE):
    h = r * 0.52
    top = polygon((cx, cy - r), (cx + r * 0.88, cy - h), (cx, cy), (cx - r * 0.88, cy - h))
    left = polygon((cx - r * 0.88, cy - h), (cx, cy), (cx, cy + r), (cx - r * 0.88, cy + h))
    right = polygon((cx + r * 0.88, cy - h), (cx, cy), (cx, cy + r), (cx + r * 0.88, cy + h))
    edges = chain([(cx - r * 0.88, cy - h), (cx, cy), (cx + r * 0.88, cy - h)], r * 0.09)
    return [(top, light), (left, mid), (right, dark), (edges, WHITE), (line(cx, cy, cx, cy + r, r * 0.09), WHITE)]


def reset_arrow(cx, cy, r, colour, width):
    end = math.radians(330)
    tip = (cx + r * math.cos(end), cy + r * math.sin(end))
    return [(ring(cx, cy, r, width, 20, 300), colour),
            (arrow_head(tip[0] + width * 0.9, tip[1] + width * 1.3, 62, width * 2.9), colour)]


def badge(shapes):
    """A motif in the lower right corner, on a light disc that parts it from what is behind."""
    return [(circle(17.2, 17.2, 6.8), WHITE)] + shapes


def move_cross(colour):
    shapes = [(line(12, 5, 12, 19, 2.0), colour), (line(5, 12, 19, 12, 2.0), colour)]
    for x, y, a in ((12, 1.2, 270), (22.8, 12, 0), (12, 22.8, 90), (1.2, 12, 180)):
        shapes.append((arrow_head(x, y, a, 5.2), colour))
    return shapes


def crop_marks(colour):
    return [(chain([(7, 1.5), (7, 17), (22.5, 17)], 2.4), colour),
            (chain([(1.5, 7), (17, 7), (17, 22.5)], 2.4), colour)]


def page(x, y, w, h):
    fold = w * 0.32
    outline = [(x, y), (x + w - fold, y), (x + w, y + fold), (x + w, y + h), (x, y + h)]
    return [(polygon(*outline), WHITE), (chain(outline + outline[:1], 1.3), INK),
            (polygon((x + w - fold, y), (x + w, y + fold), (x + w - fold, y + fold)), PALE),
            (chain([(x + w - fold, y), (x + w - fold, y + fold), (x + w, y + fold)], 1.1), INK)]


def rib_cage(cx, cy, s):
    shapes = [(line(cx, cy - 5.4 * s, cx, cy + 5.4 * s, 1.7 * s), BLUE)]
    for i, r in enumerate((3.6, 4.4, 3.8)):
        y = cy - 3.6 * s + i * 3.2 * s
        shapes += [(ring(cx - r * s * 0.5, y + s, r * s * 0.55, 1.3 * s, 150, 200), BLUE),
                   (ring(cx + r * s * 0.5, y + s, r * s * 0.55, 1.3 * s, 190, 200), BLUE)]
    return shapes


def landscape(x0, y0, x1, y1):
    w, h = x1 - x0, y1 - y0
    return [(rect(x0, y0, x1, y1), LIGHT_BLUE), (circle(x0 + w * 0.72, y0 + h * 0.28, w * 0.14), YELLOW),
            (polygon((x0, y1), (x0 + w * 0.38, y0 + h * 0.38), (x0 + w * 0.76, y1)), GREEN),
            (polygon((x0 + w * 0.45, y1), (x0 + w * 0.72, y0 + h * 0.6), (x1, y1)), (34, 120, 52))]


def sheets(front):
    """Two sheets behind a motif that is drawn on a sheet in front."""
    return page(8.6, 1.4, 13, 16.5) + page(5.4, 3.6, 13, 16.5) + page(2.2, 5.8, 13, 16.5) + front


def bars(heights, x0, base, width, gap, colour):
    return [(rect(x0 + i * (width + gap), base - h, x0 + i * (width + gap) + width, base), colour)
            for i, h in enumerate(heights)]


def outward_arrows(colour):
    shapes = []
    for sx, sy, a in ((1, 1, 45), (-1, 1, 135), (-1, -1, 225), (1, -1, 315)):
        shapes += [(line(12 + 3 * sx, 12 + 3 * sy, 12 + 7 * sx, 12 + 7 * sy, 2.1), colour),
                   (arrow_head(12 + 10.3 * sx, 12 + 10.3 * sy, a, 5.6), colour)]
    return shapes


def sun():
    shapes = [(circle(12, 12, 4.7), YELLOW), (ring(12, 12, 4.7, 1.3), ORANGE)]
    for i in range(8):
        a = math.radians(45 * i)
        shapes.append((line(12 + 7.2 * math.cos(a), 12 + 7.2 * math.sin(a), 12 + 10.4 * math.cos(a),
                            12 + 10.4 * math.sin(a), 1.8), ORANGE))
    return shapes


def magnifier(sign):
    """A lens over a place for a sign, drawn at 10, 10."""
    return [(line(15.6, 15.6, 21.6, 21.6, 3.6), SLATE), (circle(10, 10, 8.2), SLATE),
            (circle(10, 10, 6.2), (225, 241, 252))] + sign


def window_grid(columns):
    shapes = [(rect(1.5, 3, 22.5, 21, 1.5), INK), (rect(3, 6.6, 21, 19.5), WHITE), (rect(3, 4.4, 21, 5.6), STEEL)]
    w, h = (18 - (columns + 1)) / columns, (12.9 - (columns + 1)) / columns
    for row in range(columns):
        for column in range(columns):
            x, y = 4 + column * (w + 1), 7.6 + row * (h + 1)
            shapes += [(rect(x, y, x + w, y + h), INK), (circle(x + w / 2, y + h / 2, h * 0.36), LIGHT_BLUE)]
    return shapes


HISTOGRAM = [4, 9, 14, 10, 6, 8, 3]

ICONS = {
    "registration.png": move_cross(BLUE),
    "fiducial.png": [(ring(12, 12, 7.2, 1.9), SLATE), (line(12, 1.5, 12, 8, 1.7), SLATE), (line(12, 16, 12, 22.5, 1.7), SLATE),
                     (line(1.5, 12, 8, 12, 1.7), SLATE), (line(16, 12, 22.5, 12, 1.7), SLATE), (circle(12, 12, 2.6), RED)],
    "registration_reset.png": move_cross(FADED) + badge(reset_arrow(17.2, 17.2, 4.3, ORANGE, 1.9)),
    "crop.png": crop_marks(SLATE),
    "crop_reset.png": crop_marks(FADED) + badge(reset_arrow(17.2, 17.2, 4.3, ORANGE, 1.9)),
    "volume_info.png": cube(10.5, 10.8, 9.6) + badge([(circle(17.2, 17.2, 5.8), ORANGE), (circle(17.2, 14.2, 1.05), WHITE),
                                                     (line(17.2, 16.8, 17.2, 20.4, 1.9), WHITE)]),
    "projection.png": cube(12, 7.4, 6.8) + [(line(12, 14.6, 12, 17.4, 1.7), ORANGE), (arrow_head(12, 19.8, 90, 3.6), ORANGE),
                                          (polygon((5, 19), (19, 19), (22.5, 23), (1.5, 23)), FADED),
                                          (arrow_head(12, 20.2, 90, 3.6), ORANGE)],
    "reset.png": reset_arrow(12, 12.4, 7.6, SLATE, 2.6),
    "auto_fit.png": bars(HISTOGRAM, 2.2, 21, 2.2, 0.7, LIGHT_BLUE) + [
        (chain([(2, 21), (6.5, 20), (10, 14), (14, 6.5), (17, 3.6), (22, 3)], 2.1), ORANGE),
        (chain([(1.5, 22), (22.5, 22)], 1.5), SLATE)],
    "clear.png": [(chain([(2, 20), (8, 19), (14, 8), (22, 5)], 1.9), FADED), (line(5, 5, 19, 19, 3.0), RED),
                  (line(19, 5, 5, 19, 3.0), RED)],
    "open.png": [(polygon((1.8, 5), (9, 5), (11, 7.6), (20.5, 7.6), (20.5, 20), (1.8, 20)), ORANGE),
                 (polygon((5.2, 10.6), (23, 10.6), (20, 20.4), (1.8, 20.4)), YELLOW)],
    "save.png": [(polygon((2.5, 2.5), (18.5, 2.5), (21.5, 5.5), (21.5, 21.5), (2.5, 21.5)), BLUE),
                 (rect(7, 2.5, 16.5, 9), PALE), (rect(13, 3.6, 15.2, 7.8), DEEP_BLUE), (rect(5.8, 12.5, 18.2, 21.5), WHITE),
                 (line(8, 15.4, 16, 15.4, 1.2), FADED), (line(8, 18.4, 16, 18.4, 1.2), FADED)],
    "histogram.png": bars([h * 1.25 for h in HISTOGRAM], 3, 20.6, 2.1, 0.6, RED) + [
        (chain([(2, 2), (2, 21.6), (22.5, 21.6)], 1.7), SLATE)],
    "effects.png": sun(),
    "export.png": [(chain([(8, 9), (3.5, 9), (3.5, 21.5), (20.5, 21.5), (20.5, 9), (16, 9)], 2.1), SLATE),
                   (line(12, 6, 12, 16, 2.4), BLUE), (arrow_head(12, 1.2, 270, 6.4), BLUE)],
    "expand.png": outward_arrows(SLATE),
    "3dcvsearch.xpm": cube(10.4, 10.6, 9.8) + [(line(17.6, 17.6, 22, 22, 3.4), INK), (circle(15, 15, 5.9), INK),
                                           (circle(15, 15, 4.2), (225, 241, 252)), (ring(15, 15, 2.7, 0.9, 180, 90), WHITE)],
    "dicomIcon.xpm": page(4, 1.5, 16, 21) + rib_cage(12, 13.6, 1.15),
    "dicomStackIcon.xpm": sheets(rib_cage(8.7, 15, 0.92)),
    "tiffIcon.xpm": page(4, 1.5, 16, 21) + landscape(6.4, 9, 17.6, 20),
    "tiffStackIcon.xpm": sheets(landscape(4, 12, 13.4, 20.6)),
    "play_green.xpm": [(polygon((5, 2.5), (21, 12), (5, 21.5)), (28, 112, 46)), (polygon((6.6, 5.4), (17.8, 12), (6.6, 18.6)), GREEN)],
    "stop_blue.xpm": [(rect(4, 4, 20, 20, 1.5), DEEP_BLUE), (rect(5.6, 5.6, 18.4, 18.4, 0.6), BLUE)],
    "zoom_in.png": magnifier([(line(6, 10, 14, 10, 2.0), BLUE), (line(10, 6, 10, 14, 2.0), BLUE)]),
    "zoom_out.png": magnifier([(line(6, 10, 14, 10, 2.0), BLUE)]),
    "zoom_reset.png": magnifier(reset_arrow(10, 10, 3.4, BLUE, 1.5)),
    "switchToMultiView.xpm": window_grid(2),
    "switchToSingleView.xpm": window_grid(1),
}


def render(shapes, size, samples=4):
    """Rows of (r, g, b, a), 0 to 255, not multiplied by a."""
    rows = []
    step = 24.0 / (size * samples)
    for py in range(size):
        row = []
        for px in range(size):
            total = [0.0, 0.0, 0.0]
            covered = 0
            for sample in range(samples * samples):
                x = (px * samples + sample % samples + 0.5) * step
                y = (py * samples + sample // samples + 0.5) * step
                colour = next((c for shape, c in reversed(shapes) if shape(x, y)), None)
                if colour:
                    covered += 1
                    total = [t + c for t, c in zip(total, colour)]
            mean = [round(t / covered) for t in total] if covered else [0, 0, 0]
            row.append((*mean, round(255 * covered / samples ** 2)))
        rows.append(row)
    return rows


def write_png(path, rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    raw = b"".join(b"\0" + bytes(v for pixel in row for v in pixel) for row in rows)
    header = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 6, 0, 0, 0)
    path.write_bytes(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


def write_xpm(path, rows):
    def colour_of(pixel):
        if pixel[3] < 128:
            return "None"
        return "#%02x%02x%02x" % tuple(min(255, (v + 8) // 17 * 17) for v in pixel[:3])
    names = [[colour_of(pixel) for pixel in row] for row in rows]
    keys = sorted({name for row in names for name in row}, key=lambda name: (name != "None", name))
    letters = "".join(chr(c) for c in range(48, 123) if chr(c) not in "\\\"")
    code = {key: letters[i // len(letters)] + letters[i % len(letters)] for i, key in enumerate(keys)}
    code["None"] = "  "
    lines = ["%d %d %d 2" % (len(rows[0]), len(rows), len(keys))]
    lines += ["%s c %s" % (code[key], key) for key in keys]
    lines += ["".join(code[name] for name in row) for row in names]
    variable = "".join(c if c.isalnum() else "_" for c in "icon_" + path.stem)
    path.write_text("/* XPM */\nstatic const char* const %s[] = {\n" % variable +
                    ",\n".join('"%s"' % text for text in lines) + "};\n")


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    folder = Path(sys.argv[1])
    for name in sys.argv[2:] or ICONS:
        if name.endswith(".xpm"):
            write_xpm(folder / name, render(ICONS[name], 32))
        else:
            write_png(folder / name, render(ICONS[name], 48))


if __name__ == "__main__":
    main()
