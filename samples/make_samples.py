"""Makes the sample files: a gridded crown, a multi-tooth file and a raw crown scan.

The same bytes come out on every machine: the shapes use only arithmetic that is rounded the same way
everywhere (crown_shape.py), and the random numbers come from a seeded generator of fixed definition.
"""

import sys
from math import floor, sqrt
from pathlib import Path
from random import Random

import crown_shape as crown

BLANK = "1.70141E+38"


# --- crown.csv: a surface file, row by row, spacing 0.05 mm, nodes off the crown left out -----------------

GRID_COLUMNS, GRID_ROWS, GRID_STEP = 129, 150, 0.05
# The crown's axis in the file. The file's first node lies at (0.05, 0.05), so that no node is at the origin.
GRID_AXIS = (3.25, 3.775)
# The outline stops short of the equator, where the surface would stand upright.
GRID_OUTLINE = 0.99
# Nodes that the scanner didn't reach (centre and radius in mm from the axis): the bottom of the central pit
# and a chipped place at the foot of a wall.
BLANK_SPOTS = ((0.07, 0.06, 0.09), (0.45, 3.58, 0.12))


def is_blank(x, y):
    return any((x - cx) * (x - cx) + (y - cy) * (y - cy) < r * r for cx, cy, r in BLANK_SPOTS)


def crown_lines():
    for row in range(1, GRID_ROWS + 1):
        for column in range(1, GRID_COLUMNS + 1):
            x, y = column * GRID_STEP - GRID_AXIS[0], row * GRID_STEP - GRID_AXIS[1]
            if crown.outline_measure(x, y) >= GRID_OUTLINE:
                continue
            z = BLANK if is_blank(x, y) else f"{crown.surface_height(x, y):.5f}"
            yield f"{column * GRID_STEP:.2f},{row * GRID_STEP:.2f},{z}"


# --- teeth.csv: six small teeth of a development model ------------------------------------------------------

SENTINEL = "666"
# Parameters 1 to 11 of each tooth, then the numbers of columns and rows (none: the model grew no tooth) and
# the cusps: column, row, height in cells.
TEETH = (
    ((0.0013, 0.0004, 1.2, 200, 0.15, 0.20, 0.05, 0.04, 0.03, 0.02, 12000), (18, 20), ((9, 10, 8.0),)),
    ((0.0013, 0.0005, 1.2, 200, 0.15, 0.20, 0.05, 0.04, 0.03, 0.02, 12000), (20, 22), ((7, 8, 7.5), (13, 15, 6.0))),
    (
        (0.0013, 0.0007, 1.2, 210, 0.15, 0.22, 0.05, 0.04, 0.03, 0.02, 12000),
        (22, 20),
        ((6, 6, 7.0), (15, 7, 8.5), (11, 15, 5.5)),
    ),
    ((0.0013, 0.0009, 1.4, 210, 0.15, 0.22, 0.05, 0.04, 0.03, 0.02, 12000), None, ()),
    (
        (0.0014, 0.0004, 1.4, 220, 0.18, 0.22, 0.06, 0.04, 0.03, 0.02, 14000),
        (16, 24),
        ((8, 6, 9.0), (8, 13, 7.0), (8, 19, 4.5)),
    ),
    (
        (0.0014, 0.0005, 1.4, 220, 0.18, 0.25, 0.06, 0.05, 0.03, 0.02, 14000),
        (24, 24),
        ((7, 7, 8.0), (17, 7, 8.8), (7, 17, 7.2), (17, 17, 6.4)),
    ),
)


def tooth_height(column, row, size, cusps):
    """Height in cells: a low dome over a tilted plate with a cone for each cusp."""
    u, v = (2 * column - size[0] - 1) / size[0], (2 * row - size[1] - 1) / size[1]
    z = 2.5 * (1 - u * u) * (1 - v * v) + 0.04 * column
    for cx, cy, height in cusps:
        cone = height - 0.8 * sqrt((column - cx) * (column - cx) + (row - cy) * (row - cy) + 1)
        z = crown.smooth_max(z, cone, 0.3)
    return z


def tooth_lines(params, size, cusps):
    yield f"0,{params[10]}"
    yield ",".join(f"{p}" for p in params[:10])
    # Column after column, so that y changes from each record to the next: the reader of these files would
    # take two records of equal y for a spacing of 0. The model's heights point down.
    if size:
        for column in range(1, size[0] + 1):
            for row in range(1, size[1] + 1):
                height = tooth_height(column, row, size, cusps)
                # A line with the sentinel's digits would end the tooth, so such a height is raised a little.
                while SENTINEL in f"{height:.4f}":
                    height += 0.001
                yield f"{column},{row},{-height:.4f}"
    yield SENTINEL


def teeth_lines():
    for params, size, cusps in TEETH:
        yield from tooth_lines(params, size, cusps)


# --- scan.txt: a raw scan of the whole crown, recorded from all sides ----------------------------------------

SCAN_SEED = 1981
SCAN_POINTS = 60000
# Standard deviation of the scanner's noise along each axis, in mm.
SCAN_NOISE = 0.004
# Parts of the points on the upper side, on the upper walls and on the walls that face down.
SCAN_UPPER, SCAN_WALL = 0.58, 0.20


def direction(random):
    """A direction in the plane, each equally likely."""
    while True:
        x, y = 2 * random.random() - 1, 2 * random.random() - 1
        square = x * x + y * y
        if 0.01 < square <= 1:
            return x / sqrt(square), y / sqrt(square)


class EvenSpread:
    """How much surface stands over a place of the plan, from heights on a coarse lattice."""

    PITCH = 0.1
    HIGHEST = 2.5

    def __init__(self):
        self.heights = {}

    def height(self, i, j):
        if (i, j) not in self.heights:
            self.heights[i, j] = crown.surface_height(i * self.PITCH, j * self.PITCH)
        return self.heights[i, j] or 0.0

    def area(self, x, y):
        i, j = floor(x / self.PITCH), floor(y / self.PITCH)
        gx = (self.height(i + 1, j) - self.height(i, j)) / self.PITCH
        gy = (self.height(i, j + 1) - self.height(i, j)) / self.PITCH
        return min(self.HIGHEST, sqrt(1 + gx * gx + gy * gy))


def upper_point(random, spread):
    """A point of the biting surface; points lie evenly over the surface, not over its plan."""
    while True:
        x = crown.HALF_WIDTH_X * (2.2 * random.random() - 1.1)
        y = crown.HALF_WIDTH_Y * (2.2 * random.random() - 1.1)
        if crown.outline_measure(x, y) <= 0.93 and random.random() * spread.HIGHEST < spread.area(x, y):
            return x, y, crown.surface_height(x, y)


def noise(random):
    """A sum of uniform numbers in place of a normal deviate: no logarithm is needed for it."""
    total = 0.0
    # One after the other: newer Pythons' sum() adds more exactly, and so differently.
    for _ in range(12):
        total += random.random()
    return SCAN_NOISE * (total - 6)


def scan_lines():
    random, spread = Random(SCAN_SEED), EvenSpread()
    for _ in range(SCAN_POINTS):
        kind = random.random()
        if kind < SCAN_UPPER:
            point = upper_point(random, spread)
        elif kind < SCAN_UPPER + SCAN_WALL:
            point = crown.upper_wall_point(*direction(random), 0.80 * random.random())
        else:
            point = crown.lower_wall_point(*direction(random), random.random())
        yield ",".join(f"{value + noise(random):.4f}" for value in point)


def write(path, lines, line_end):
    path.write_bytes("".join(line + line_end for line in lines).encode("ascii"))


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).parent
    folder.mkdir(parents=True, exist_ok=True)
    write(folder / "crown.csv", crown_lines(), "\r\n")
    write(folder / "teeth.csv", teeth_lines(), "\r\n")
    write(folder / "scan.txt", scan_lines(), "\n")


if __name__ == "__main__":
    main()
