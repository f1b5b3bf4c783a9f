# Sheets on the UTM grid, scanned at a slant: polynomials in both directions, fitted with least squares in
# 50 digits to positions of PROJ's cs2cs. Writes the rows of polynomial_sheets.txt.
import subprocess
from math import cos, radians, sin

from mpmath import lu_solve, matrix, mp, mpf, nstr

mp.dps = 50

SHEETS = (  # name, order; zone; grid value of pixel (0, 0), metres a pixel, slant in degrees; width, height
    ("munich", 10, ("32",), (675000, 5345000), 2.5, 1.5, (8000, 8000)),
    ("rio", 6, ("23", "+south"), (655000, 7480000), 5.0, -0.7, (4000, 4000)),
)


def degrees(zone, points):
    command = ["cs2cs", "-f", "%.12f", "+proj=utm", "+zone=" + zone[0], *zone[1:], "+to", "+proj=longlat"]
    lines = "".join(f"{e:.9f} {n:.9f}\n" for e, n in points)
    out = subprocess.run(command, input=lines, capture_output=True, text=True, check=True).stdout
    return [tuple(map(mpf, line.split()[:2])) for line in out.splitlines()]


def terms(order, u, v):
    return (1, u, v, u * v, u * u, v * v, u * u * v, u * v * v, u * u * u, v * v * v)[:order]


def fit(order, places, values):
    return lu_solve(matrix([terms(order, *place) for place in places]), matrix(values))


def value(order, table, place):
    return sum(c * t for c, t in zip(table, terms(order, *place)))


for name, order, zone, (e0, n0), scale, slant, (width, height) in SHEETS:
    along, across = scale * cos(radians(slant)), scale * sin(radians(slant))

    def world(pixels):
        return degrees(zone, [(e0 + along * x - across * y, n0 - across * x - along * y) for x, y in pixels])

    steps = [i / 10 for i in range(11)]
    pixels = [(width * i, height * j) for i in steps for j in steps]
    places = world(pixels)
    tables = [fit(order, pixels, [lat for _, lat in places]), fit(order, pixels, [lon for lon, _ in places]),
              fit(order, places, [x for x, _ in pixels]), fit(order, places, [y for _, y in pixels])]
    for label, table in zip(("latFromPixel", "lonFromPixel", "pixelXFromWorld", "pixelYFromWorld"), tables):
        print(name, label, *(nstr(c, 20) for c in table))
    checks = [(width * i, height * j) for i in (0.05, 0.37, 0.52, 0.97) for j in (0.03, 0.41, 0.5, 0.95)]
    for pixel, place in zip(checks, world(checks)):
        print(name, "position", *(nstr(v, 14) for v in place[::-1]), *(nstr(mpf(v), 12) for v in pixel))
    residuals = [abs(value(order, table, place) - pixel[axis]) for axis, table in enumerate(tables[2:])
                 for pixel, place in zip(checks, world(checks))]
    print("#", name, "off by at most", nstr(max(residuals), 3), "pixels")
