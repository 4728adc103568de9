#!/usr/bin/env python3
"""Draws the picture of the About window: a mast on a hill, its waves over a city and a car.

    assets/make-about-picture.py assets/about.bmp

The rings grow thinner with the distance from the antenna, as a field does. Black and white, one bit
for a point.
"""

import math
import struct
import sys

WIDTH, HEIGHT = 496, 501
BLACK, WHITE = 0, 1

ANTENNA = (166.0, 118.0)
MAST_FOOT = 318.0
ROAD = (446.0, 484.0)
# left, width, height of each building; all stand on the road's far side
BUILDINGS = [(282, 34, 78), (312, 26, 132), (336, 40, 104), (372, 30, 168), (398, 44, 120),
             (438, 28, 92), (462, 34, 146)]


def hill(x):
    """The height of the ground as a row of the picture."""
    peak = 122 * math.exp(-((x - 166) / 92) ** 2)
    shoulder = 40 * math.exp(-((x - 20) / 70) ** 2)
    return 440 - peak - shoulder


def ridge(x):
    return 372 - 22 * math.sin(x / 47 + 0.6) - 12 * math.sin(x / 19) - 5 * math.sin(x / 7.3)


def near_line(x, y, a, b, width):
    (ax, ay), (bx, by) = a, b
    length = (bx - ax) ** 2 + (by - ay) ** 2
    t = max(0.0, min(1.0, ((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / length))
    return math.hypot(x - ax - t * (bx - ax), y - ay - t * (by - ay)) <= width / 2


def mast_half_width(row):
    return 2.0 + 17.0 * (row - ANTENNA[1]) / (MAST_FOOT + 20 - ANTENNA[1])


def mast_lines():
    """The lattice: two legs, a brace across each bay, three dipoles above."""
    x, half = ANTENNA[0], mast_half_width
    foot = MAST_FOOT + 8
    lines = [((x - half(ANTENNA[1]), ANTENNA[1]), (x - half(foot), foot), 2.6),
             ((x + half(ANTENNA[1]), ANTENNA[1]), (x + half(foot), foot), 2.6),
             ((x, ANTENNA[1] - 26), (x, ANTENNA[1] + 6), 3.2)]
    row, bay = ANTENNA[1] + 12, 15.0
    while row + bay < foot + 2:
        below = row + bay
        lines.append(((x - half(row), row), (x + half(below), below), 1.5))
        lines.append(((x + half(row), row), (x - half(below), below), 1.5))
        lines.append(((x - half(row), row), (x + half(row), row), 1.5))
        row, bay = below, bay * 1.09
    for level, reach in ((-22, 8), (-13, 10), (-4, 12)):
        lines.append(((x - reach, ANTENNA[1] + level), (x + reach, ANTENNA[1] + level), 2.4))
    return lines


MAST = mast_lines()
MAST_HALO = [(a, b, width + 4.5) for a, b, width in MAST]


def mast(x, y):
    if abs(x - ANTENNA[0]) > 40 or not ANTENNA[1] - 40 < y < MAST_FOOT + 14:
        return None
    if any(near_line(x, y, *line) for line in MAST):
        return WHITE
    within = ANTENNA[1] < y < hill(x) and abs(x - ANTENNA[0]) < mast_half_width(y)
    return BLACK if within or any(near_line(x, y, *line) for line in MAST_HALO) else None


def building(x, y):
    for left, width, height in reversed(BUILDINGS):
        top = ROAD[0] - height
        if not (left <= x < left + width and top <= y < ROAD[0]):
            continue
        if x < left + 1.5 or x >= left + width - 1.5 or y < top + 1.5:
            return WHITE
        column, across = divmod(x - left - 5, 8)
        row, down = divmod(y - top - 7, 11)
        inside = 0 <= column < (width - 6) // 8 and 0 <= row < (height - 10) // 11
        lit = (int(column) * 7 + int(row) * 5 + left) % 4 != 0
        return WHITE if inside and lit and across < 4 and down < 6 else BLACK
    return None


CAR = (352.0, 470.0)  # the middle of its underside


def car(x, y):
    """With a dark edge around it, that parts it from what is behind."""
    x, y = x - CAR[0], y - CAR[1]
    if abs(x) > 56 or not -64 < y < 14:
        return None
    color = car_itself(x, y)
    if color is not None:
        return color
    edge = 2.5
    around = [(-edge, 0), (edge, 0), (0, -edge), (0, edge)]
    return BLACK if any(car_itself(x + dx, y + dy) == WHITE for dx, dy in around) else None


def car_itself(x, y):
    for wheel in (-24, 24):
        r = math.hypot(x - wheel, y)
        if r < 4:
            return WHITE
        if r < 9.5:
            return BLACK
    if near_line(x, y, (30, -19), (38, -52), 1.8) or math.hypot(x - 38, y + 52) < 2.6:
        return WHITE
    roof = 14 + (y + 19) * 0.75 + 12  # half its width, wider below
    if -36 <= y < -19 and -roof - 4 < x < roof - 8:
        window = -32 <= y < -20 and -roof + 1 < x < roof - 13 and not -6 < x < -2
        return BLACK if window else WHITE
    if -19 <= y < 1 and abs(x) < 45 - max(0.0, -y - 12) * 0.8:
        return BLACK if -13 <= y < -11.5 and abs(x) < 38 else WHITE
    return None


def sky(x, y):
    r = math.hypot(x - ANTENNA[0], y - ANTENNA[1] + 13)
    thickness = 1.3 + 9.5 * math.exp(-r / 125)
    return WHITE if r > 30 and abs((r - 40) % 23 - 11.5) < thickness / 2 else BLACK


def mountains(x, y):
    depth = y - ridge(x)
    if depth < 2.2:
        return WHITE
    return WHITE if depth % 9 < 1.2 and (x + depth * 1.7) % 46 < 30 else BLACK


def meadow(x, y):
    """Engraved: lines along the slope, heavier on the side away from the light."""
    depth = y - hill(x)
    if depth < 3:
        return WHITE
    shade = 1.6 + 2.2 / (1 + math.exp(-(x - 172) / 26))
    return BLACK if depth % 7.5 < shade else WHITE


def road(x, y):
    if y < ROAD[0] + 3 or y > ROAD[1] - 3:
        return WHITE
    middle = (ROAD[0] + ROAD[1]) / 2
    return WHITE if abs(y - middle) < 1.5 and (x + 10) % 44 < 26 else BLACK


def point(x, y):
    if x < 3 or y < 3 or x >= WIDTH - 3 or y >= HEIGHT - 3:
        return BLACK
    for layer in (car, mast):
        color = layer(x, y)
        if color is not None:
            return color
    if y > ROAD[1]:
        return BLACK if (y - ROAD[1]) % 5 < 1.5 else WHITE
    if y >= ROAD[0]:
        return road(x, y)
    color = building(x, y)
    if color is not None:
        return color
    if y >= hill(x):
        return meadow(x, y)
    return mountains(x, y) if y >= ridge(x) else sky(x, y)


def bitmap():
    stride = (WIDTH + 31) // 32 * 4
    rows = bytearray()
    for y in range(HEIGHT - 1, -1, -1):
        row = bytearray(stride)
        for x in range(WIDTH):
            row[x // 8] |= point(x + 0.5, y + 0.5) << (7 - x % 8)
        rows += row
    palette = bytes((0, 0, 0, 0, 255, 255, 255, 0))
    offset = 14 + 40 + len(palette)
    points_per_metre = 3780
    header = struct.pack("<2sIHHI", b"BM", offset + len(rows), 0, 0, offset)
    info = struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 1, 0, len(rows), points_per_metre,
                       points_per_metre, 2, 2)
    return header + info + palette + bytes(rows)


if __name__ == "__main__":
    with open(sys.argv[1], "wb") as file:
        file.write(bitmap())
