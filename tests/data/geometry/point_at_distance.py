# Points at a distance from a start, found by bisection in 50-digit arithmetic (mpmath) on the WGS84
# ellipsoid; geodesic distances by GeographicLib's GeodSolve. Writes the rows of point_at_distance.txt.
import random
import subprocess

from mpmath import atan2, cos, degrees, mp, mpf, radians, sin, sqrt

mp.dps = 50
A, F = mpf("6378137"), 1 / mpf("298.257223563")
E2 = F * (2 - F)


def vector(lat, lon, height):
    phi, lam = radians(lat), radians(lon)
    n = A / sqrt(1 - E2 * sin(phi) ** 2)
    return [(n + height) * cos(phi) * cos(lam), (n + height) * cos(phi) * sin(lam), (n * (1 - E2) + height) * sin(phi)]


def axes(lat, lon, azimuth):
    phi, lam, az = radians(lat), radians(lon), radians(azimuth)
    up = [cos(phi) * cos(lam), cos(phi) * sin(lam), sin(phi)]
    east = [-sin(lam), cos(lam), mpf(0)]
    north = [-sin(phi) * cos(lam), -sin(phi) * sin(lam), cos(phi)]
    return up, [sin(az) * e + cos(az) * n for e, n in zip(east, north)]


def move(p, t, d):
    return [a + t * b for a, b in zip(p, d)]


def drop(p, d):
    """The nearer meeting of the line p + t d with the ellipsoid."""
    w = 1 - E2
    a = d[0] ** 2 + d[1] ** 2 + d[2] ** 2 / w
    b = p[0] * d[0] + p[1] * d[1] + p[2] * d[2] / w
    c = p[0] ** 2 + p[1] ** 2 + p[2] ** 2 / w - A**2
    root = sqrt(b * b - a * c)
    return move(p, min((-b + root) / a, (-b - root) / a, key=abs), d)


def ground(p):
    """Latitude and longitude of a point on the ellipsoid."""
    return degrees(atan2(p[2], (1 - E2) * sqrt(p[0] ** 2 + p[1] ** 2))), degrees(atan2(p[1], p[0]))


def geodesic(lat1, lon1, lat2, lon2):
    line = " ".join(mp.nstr(mpf(v), 20) for v in (lat1, lon1, lat2, lon2))
    result = subprocess.run(["GeodSolve", "-i", "-p", "9"], input=line, capture_output=True, text=True, check=True)
    return mpf(result.stdout.split()[2])


def bisect(low, high, is_low):
    while high - low > mpf(10) ** -13:
        middle = (low + high) / 2
        low, high = (middle, high) if is_low(middle) else (low, middle)
    return low


def at_geodesic_distance(lat, lon, height, azimuth, distance):
    p, (up, d) = vector(lat, lon, height), axes(lat, lon, azimuth)
    foot = lambda t: ground(drop(move(p, t, d), up))
    return foot(bisect(mpf(0), mpf(distance), lambda t: geodesic(lat, lon, *foot(t)) < distance))


def at_chord_distance(lat, lon, height, azimuth, distance):
    p, (up, d) = vector(lat, lon, height), axes(lat, lon, azimuth)
    end = lambda tilt: move(move(p, distance * cos(tilt), d), -distance * sin(tilt), up)
    is_above = lambda q: q[0] ** 2 + q[1] ** 2 + q[2] ** 2 / (1 - E2) > A**2
    return ground(end(bisect(mpf(0), radians(mpf(89)), lambda tilt: is_above(end(tilt)))))


random.seed(62)
for kind, solve, distances in (
    ("geodesic", at_geodesic_distance, (1, 5000, 20000, 100000, 500000, 1000000, 3000000, 6000000, 6370000)),
    ("chord", at_chord_distance, (1, 300, 1000, 20000, 100000, 500000, 1000000, 6000000, 12000000)),
):
    for distance in distances:
        for _ in range(4):
            height = random.choice((0, 0, min(500, distance / 2)))
            start = round(random.uniform(-85, 85), 6), round(random.uniform(-180, 180), 6), height
            azimuth = round(random.uniform(-180, 360), 3)
            lat, lon = solve(*map(mpf, map(str, start)), mpf(str(azimuth)), distance)
            print(kind, *start, azimuth, distance, mp.nstr(lat, 15), mp.nstr(lon, 15))
