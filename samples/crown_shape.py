"""Shape of the sample crown: a lower molar with five cusps, in millimetres, +z occlusal.

Every step is an addition, multiplication, division or square root, which IEEE 754 rounds the same way
everywhere. No sine, power or logarithm occurs, so the printed decimals don't depend on a machine's
mathematics library.
"""

from math import floor, sqrt

# Half widths of the outline at its widest (the equator of the bulging walls) and heights of the shell.
HALF_WIDTH_X = 3.25
HALF_WIDTH_Y = 3.80
EQUATOR_Z = 1.60
SHELL_HEIGHT = 3.30
CERVIX_DROP = 1.60
CERVIX_TAPER = 0.22

# Tip x, y, z (mm), mean slope of the faces (mm per mm), roundness of the tip (mm).
CUSPS = (
    # tip x, tip y, tip z, slope, roundness
    (-1.55, -1.85, 4.42, 0.78, 0.16),
    (-1.75, 0.25, 4.22, 0.74, 0.18),
    (-1.25, 2.15, 3.98, 0.72, 0.17),
    (1.60, -1.65, 4.66, 0.86, 0.13),
    (1.65, 1.35, 4.48, 0.83, 0.14),
)

# Ridges that close the basin at both ends: from, to, height, slope.
MARGINAL_RIDGES = (
    ((-1.35, -2.55), (1.35, -2.45), 3.86, 0.95),
    ((-0.85, 2.75), (1.35, 2.40), 3.72, 0.95),
)

# Fissures carved into the valleys: from, to, depth, half width.
FISSURES = (
    ((0.05, -2.05), (0.10, -0.45), 0.20, 0.17),
    ((0.10, -0.45), (0.05, 0.95), 0.26, 0.18),
    ((0.05, 0.95), (0.25, 2.00), 0.18, 0.16),
    ((0.10, -0.45), (-2.55, -0.85), 0.22, 0.16),
    ((0.05, 0.95), (-2.50, 1.25), 0.20, 0.15),
    ((0.08, 0.05), (2.60, -0.10), 0.24, 0.16),
    ((0.05, -2.05), (0.85, -2.50), 0.12, 0.12),
    ((0.05, -2.05), (-0.80, -2.45), 0.10, 0.12),
    ((0.25, 2.00), (0.95, 2.35), 0.10, 0.12),
)
PITS = ((0.05, -2.05, 0.16, 0.20), (0.08, 0.05, 0.20, 0.24), (0.20, 1.90, 0.14, 0.18))

# Ridges running down from the tips into the basin and along the rim: from, to, height, half width.
CRESTS = (
    ((-1.55, -1.85), (-0.30, -1.35), 0.26, 0.44),
    ((-1.75, 0.25), (-0.30, 0.20), 0.26, 0.46),
    ((-1.25, 2.15), (-0.20, 1.60), 0.22, 0.40),
    ((1.60, -1.65), (0.40, -1.25), 0.28, 0.46),
    ((1.65, 1.35), (0.40, 1.10), 0.26, 0.46),
    ((1.60, -1.65), (1.70, -0.55), 0.14, 0.26),
    ((1.65, 1.35), (1.70, 0.30), 0.14, 0.26),
    ((-1.05, -1.05), (-0.55, -0.85), 0.09, 0.17),
    ((1.10, -0.80), (0.50, -0.60), 0.09, 0.18),
    ((1.05, 0.55), (0.50, 0.60), 0.08, 0.17),
)

# A worn facet on the highest cusp: z may not exceed z0 + gx x + gy y.
FACET = (4.19, 0.10, -0.16)


def smooth_max(a, b, width):
    return 0.5 * (a + b + sqrt((a - b) * (a - b) + width * width))


def smooth_min(a, b, width):
    return 0.5 * (a + b - sqrt((a - b) * (a - b) + width * width))


def distance_to_segment(x, y, start, end):
    """Distance from (x, y) to the segment and the place of the foot on it, 0 at start and 1 at end."""
    dx, dy = end[0] - start[0], end[1] - start[1]
    t = ((x - start[0]) * dx + (y - start[1]) * dy) / (dx * dx + dy * dy)
    t = min(1.0, max(0.0, t))
    ex, ey = x - start[0] - t * dx, y - start[1] - t * dy
    return sqrt(ex * ex + ey * ey), t


def bump(distance, half_width):
    """1 on the line, 0 from half_width on, smooth between."""
    q = distance * distance / (half_width * half_width)
    return (1 - q) * (1 - q) if q < 1 else 0.0


def lattice_value(i, j, layer):
    """A value in -1..1 that depends on the lattice node only."""
    h = (i * 374761393 + j * 668265263 + layer * 2147483647) & 0xFFFFFFFF
    h = ((h ^ (h >> 13)) * 1274126177) & 0xFFFFFFFF
    h = ((h ^ (h >> 16)) * 2246822519) & 0xFFFFFFFF
    return (h ^ (h >> 15)) / 2147483648.0 - 1.0


def waviness(x, y, wavelength, layer):
    """Smooth irregularity of the enamel in -1..1, interpolated between lattice nodes a wavelength apart."""
    u, v = x / wavelength + 1000, y / wavelength + 1000
    i, j = floor(u), floor(v)
    s, t = u - i, v - j
    s, t = s * s * (3 - 2 * s), t * t * (3 - 2 * t)
    low = lattice_value(i, j, layer) * (1 - s) + lattice_value(i + 1, j, layer) * s
    high = lattice_value(i, j + 1, layer) * (1 - s) + lattice_value(i + 1, j + 1, layer) * s
    return low * (1 - t) + high * t


def outline_measure(x, y):
    """0 on the tooth's axis, 1 on the outline at the equator, in proportion along each direction."""
    r = sqrt(x * x + y * y)
    if r == 0:
        return 0.0
    ux, uy = x / r, y / r
    # A rounded rectangle, a little wider in front, drawn in where the grooves reach the outer walls.
    wx = ux * (1 + 0.07 * uy) / HALF_WIDTH_X
    wy = uy * (1 + 0.03 * ux) / HALF_WIDTH_Y
    rho = r * sqrt(sqrt(wx * wx * wx * wx + wy * wy * wy * wy))
    notch = 0.045 * bump(uy + 0.03, 0.30) if ux > 0 else 0.05 * bump(uy + 0.30, 0.26) + 0.04 * bump(uy - 0.42, 0.24)
    return rho * (1 + notch)


def cusp_height(x, y, cusp):
    tip_x, tip_y, tip_z, slope, roundness = cusp
    dx, dy = x - tip_x, y - tip_y
    # The outer face, away from the axis, falls off less steeply; the shell takes over further out.
    outward = (dx * tip_x + dy * 0.4 * tip_y) / sqrt(tip_x * tip_x + tip_y * tip_y)
    factor = slope * (0.93 - 0.17 * outward / sqrt(outward * outward + 0.25))
    stretched = factor * factor * (1.15 * dx * dx + 0.92 * dy * dy)
    return tip_z - sqrt(stretched + roundness * roundness) + roundness


def ridge_height(x, y, ridge):
    start, end, height, slope = ridge
    distance, _ = distance_to_segment(x, y, start, end)
    return height - sqrt(slope * slope * distance * distance + 0.01) + 0.1


def table_height(x, y):
    """The biting surface without the walls, inside the shell."""
    # Nothing on a tooth runs straight: the plan of the features is bent a little.
    x, y = x + 0.16 * waviness(x, y, 0.80, 5), y + 0.16 * waviness(x, y, 0.80, 6)
    z = cusp_height(x, y, CUSPS[0])
    for cusp in CUSPS[1:]:
        z = smooth_max(z, cusp_height(x, y, cusp), 0.16)
    for ridge in MARGINAL_RIDGES:
        z = smooth_max(z, ridge_height(x, y, ridge), 0.22)
    for start, end, height, half_width in CRESTS:
        distance, t = distance_to_segment(x, y, start, end)
        z += height * bump(distance, half_width) * (1 - 0.35 * t)
    for start, end, depth, half_width in FISSURES:
        distance, _ = distance_to_segment(x, y, start, end)
        wander = 1 + 0.25 * waviness(x, y, 0.30, 3)
        z -= depth * bump(distance, half_width * wander)
    for px, py, depth, half_width in PITS:
        z -= depth * bump(sqrt((x - px) * (x - px) + (y - py) * (y - py)), half_width)
    return smooth_min(z, FACET[0] + FACET[1] * x + FACET[2] * y + 0.10, 0.05)


def height_under_shell(x, y, shell):
    z = smooth_min(table_height(x, y), shell, 0.35)
    return z + 0.030 * waviness(x, y, 0.62, 1) + 0.012 * waviness(x, y, 0.27, 2)


def surface_height(x, y):
    """Height of the upper side at (x, y); None outside the outline."""
    rho = outline_measure(x, y)
    if rho >= 1:
        return None
    quarter = 1 - rho * rho * rho * rho
    return height_under_shell(x, y, EQUATOR_Z + SHELL_HEIGHT * sqrt(sqrt(quarter)))


def outline_radius(ux, uy):
    """Distance from the axis to the outline at the equator in the direction (ux, uy)."""
    return 1 / outline_measure(ux, uy)


def upper_wall_point(ux, uy, up):
    """Point of the wall above the equator, where the heights over the plan stand too steep: up 0 at the
    equator, 1 at the top of the shell."""
    radius = outline_radius(ux, uy) * sqrt(sqrt(1 - up * up * up * up))
    x, y = radius * ux, radius * uy
    return x, y, height_under_shell(x, y, EQUATOR_Z + SHELL_HEIGHT * up)


def lower_wall_point(ux, uy, depth):
    """Point of the wall under the equator, which faces down: depth 0 at the equator, 1 at the cervix."""
    radius = outline_radius(ux, uy) * (1 - CERVIX_TAPER * depth * depth)
    drop = CERVIX_DROP * (1 + 0.18 * (ux * ux - uy * uy))
    x, y = radius * ux, radius * uy
    swell = 1 + 0.008 * waviness(3 * ux, 3 * uy + 2 * depth, 0.5, 4)
    return x * swell, y * swell, EQUATOR_Z - drop * depth
