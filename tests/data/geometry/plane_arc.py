# The points of arcs in a tangent plane: plane coordinates from the definition of the ellipse, carried into
# earth-centred space by GeographicLib's CartConvert. Writes the rows of plane_arc.txt.
import subprocess
from math import cos, radians, sin


def convert(options, line):
    command = ["CartConvert", "-p", "9", *options]
    return subprocess.run(command, input=line, capture_output=True, text=True, check=True).stdout


ARCS = (  # centre; rotation, semi-axes along and across; start, end, count, clockwise; degrees from point to point
    ((48, 16, 0), (0, 10000, 10000), (0, 0, 5, 1), 90),
    ((48, 16, 0), (0, 10000, 10000), (0, 0, 5, 0), -90),
    ((48, 16, 0), (0, 10000, 10000), (350, 10, 3, 1), 10),
    ((48, 16, 0), (0, 10000, 10000), (350, 10, 3, 0), -170),
    ((-33.5, -70.25, 1500), (0, 250, 250), (-90, 90, 4, 1), 60),
    ((0, 120, 0), (0, 500000, 500000), (30, 400, 3, 1), 5),
    ((90, 0, 0), (0, 1000, 1000), (0, 90, 2, 1), 90),
    ((48, 16, 0), (30, 1000, 500), (0, 90, 2, 1), 90),
    ((48, 16, 0), (-400, 1000, 500), (45, 45, 7, 1), 60),
    ((-12, 150, 0), (75, 20, 3000), (200, 100, 6, 0), -20),
)

for centre, (rotation, along, across), (start, end, count, clockwise), step in ARCS:
    for i in range(count):
        # Along the axes of the ellipse, then turned by the rotation, clockwise.
        u, v = along * cos(radians(start + i * step)), across * sin(radians(start + i * step))
        rho = radians(rotation)
        x, y = u * sin(rho) + v * cos(rho), u * cos(rho) - v * sin(rho)
        position = convert(["-r", "-l", *map(str, centre)], f"{x:.12f} {y:.12f} 0\n")
        print(*centre, rotation, along, across, start, end, count, clockwise, i, *convert([], position).split())
