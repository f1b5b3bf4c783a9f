/* Writes convergence.txt: convergence and scale of grids by PROJ's proj_factors.
 *   cc convergence.c -lproj -lm -o convergence && ./convergence > convergence.txt */
#include <math.h>
#include <proj.h>
#include <stdio.h>

struct Grid {
    int type, datum, zone;
    const char *projection, *ellipsoid;
    double places[6][2]; /* latitude, longitude; ends with 0, 0 */
};

#define WGS84 "+ellps=WGS84"
#define INTERNATIONAL "+a=6378388 +rf=297"
#define BESSEL "+a=6377397.155 +rf=299.1528128"

static const struct Grid GRIDS[] = {
    {2, 2, 32, "+proj=utm +zone=32", WGS84, {{48.1375, 11.5755}, {-33.5, 6.5}, {79.9, 11.9}, {0.5, 9.25}, {61.3, 4.0}}},
    {3, 2, 60, "+proj=utm +zone=60", WGS84, {{-44.25, 178.75}, {12.0, 174.5}}},
    {7, 3, 0, "+proj=tmerc +lon_0=12", BESSEL, {{48.1375, 11.5755}, {54.5, 13.4}, {-20.0, 10.6}}},
    {7, 3, 0, "+proj=tmerc +lon_0=-75", BESSEL, {{40.7, -74.0}, {5.0, -76.2}}},
    {7, 8, 0, "+proj=tmerc +lon_0=27", INTERNATIONAL, {{61.5, 26.1}, {69.9, 28.3}}},
    {13, 10, 0, "+proj=tmerc +lon_0=15", "+a=6378245 +rf=298.3", {{50.1, 14.4}, {-10.0, 17.5}}},
    {8, 6, 28, "+proj=tmerc +lon_0=10.333333333334", BESSEL, {{47.25, 9.6}, {47.3, 11.4}}},
    {9, 6, 31, "+proj=tmerc +lon_0=13.333333333334", BESSEL, {{47.8, 13.0}, {46.6, 14.3}}},
    {14, 6, 34, "+proj=tmerc +lon_0=16.333333333334", BESSEL, {{48.2, 16.4}, {47.1, 15.4}}},
    {10, 7, 0, "+proj=somerc +lat_0=46.95240555555556 +lon_0=7.439583333333333", BESSEL,
     {{46.95240555555556, 7.5}, {46.2, 6.1}, {46.6, 10.4}, {47.8, 8.6}, {44.0, 2.0}}},
    {15, 2, 0, "+proj=ups", WGS84, {{85.0, 30.0}, {81.5, -170.0}, {89.0, 90.0}}},
    {15, 2, 0, "+proj=ups +south", WGS84, {{-85.0, 30.0}, {-81.5, -170.0}, {-88.5, -60.0}}},
    {16, 1, 0, "+proj=tmerc +lon_0=-8.1331086111 +lat_0=39.6682583333", INTERNATIONAL, {{38.7, -9.1}, {41.2, -6.9}}},
    {17, 2, 0, "+proj=tmerc +lon_0=9 +k=0.9996", WGS84, {{48.0, 25.0}, {-65.0, -3.0}, {80.0, 40.0}}},
    {19, 98, 0, "+proj=tmerc +lon_0=-2 +lat_0=49 +k=0.9996012717", "+a=6377563.396 +rf=299.3249646", {{51.5, -0.1}, {58.6, -5.0}, {50.1, -5.5}}},
    {20, 97, 0, "+proj=tmerc +lon_0=-8 +lat_0=53.5 +k=1.000035", "+a=6377340.189 +rf=299.3249646", {{53.3, -6.3}, {52.0, -9.9}}},
    {21, 237, 0, "+proj=sterea +lat_0=52.1561605556 +lon_0=5.3876388889 +k=0.99990790084", BESSEL,
     {{52.37, 4.9}, {50.85, 5.7}, {53.3, 7.1}, {51.0, 3.0}}},
    {22, 1, 0, "+proj=tmerc +lon_0=6.16666666667 +lat_0=49.8333333333", INTERNATIONAL, {{49.6, 6.1}, {50.1, 5.8}}},
};
#define COUNT (sizeof GRIDS / sizeof GRIDS[0])

int main(void) {
    printf("# Convergence and scale of conformal grids. Type, datum and zone or meridian of the record; latitude, longitude;\n"
           "# convergence (degrees) and scale by proj_factors of PROJ %d.%d.%d, whose derivatives are differences of 1e-5\n"
           "# radians. convergence.c beside this file writes it.\n",
           PROJ_VERSION_MAJOR, PROJ_VERSION_MINOR, PROJ_VERSION_PATCH);
    for (size_t i = 0; i < COUNT; ++i) {
        const struct Grid *g = &GRIDS[i];
        char text[400];
        snprintf(text, sizeof text, "%s %s", g->projection, g->ellipsoid);
        printf("# %s\n", text);
        PJ *p = proj_create(NULL, text);
        for (int k = 0; k < 6 && (g->places[k][0] != 0 || g->places[k][1] != 0); ++k) {
            PJ_COORD at = proj_coord(proj_torad(g->places[k][1]), proj_torad(g->places[k][0]), 0, 0);
            PJ_FACTORS f = proj_factors(p, at);
            printf("%d %d %d %.14g %.14g %.12f %.12f\n", g->type, g->datum, g->zone, g->places[k][0],
                   g->places[k][1], proj_todeg(f.meridian_convergence), f.meridional_scale);
        }
        proj_destroy(p);
    }
    return 0;
}
