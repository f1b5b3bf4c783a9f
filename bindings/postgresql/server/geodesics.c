/* Distances and directions on the ellipsoid. */
#include "server.h"

#include "utils/builtins.h"

/* The datum of a name behind the four numbers, or WGS84. */
static int32 DatumOf(FunctionCallInfo fcinfo) {
    int32 datum = TESSARA_WGS84;
    TessaraError error;

    if (PG_NARGS() > 4 && !Tessara_Datum(Utf8OfText(PG_GETARG_TEXT_PP(4)), &datum, &error))
        ReportError(&error);
    return datum;
}

static bool WayOf(FunctionCallInfo fcinfo, double way[3], TessaraError* error) {
    const double from[2] = {PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1)};
    const double to[2] = {PG_GETARG_FLOAT8(2), PG_GETARG_FLOAT8(3)};

    return Tessara_Way(from, to, DatumOf(fcinfo), way, error);
}

static Datum Triple(FunctionCallInfo fcinfo, const double numbers[3]) {
    Datum values[3];
    bool nulls[3] = {false};

    for (int k = 0; k < 3; k++)
        values[k] = Float8GetDatum(numbers[k]);
    return MakeTuple(fcinfo, values, nulls);
}

#define WAY_FUNCTION(name, index)                                                  \
    FUNCTION_OR_NULL(name) {                                                       \
        double way[3];                                                             \
        TessaraError error;                                                        \
                                                                                   \
        if (!WayOf(fcinfo, way, &error)) return FailureOf(fcinfo, &error, orNull); \
        PG_RETURN_FLOAT8(way[index]);                                              \
    }

WAY_FUNCTION(tessara_distance, 0)
WAY_FUNCTION(tessara_azimuth, 1)

FUNCTION_OR_NULL(tessara_way) {
    double way[3];
    TessaraError error;

    if (!WayOf(fcinfo, way, &error)) return FailureOf(fcinfo, &error, orNull);
    return Triple(fcinfo, way);
}

FUNCTION_OR_NULL(tessara_distance_of_positions) {
    double from[2];
    double to[2];
    double way[3];
    TessaraError error;

    Tessara_DegreesOf(PG_GETARG_POSITION(0), from);
    Tessara_DegreesOf(PG_GETARG_POSITION(1), to);
    if (!Tessara_Way(from, to, TESSARA_WGS84, way, &error)) return FailureOf(fcinfo, &error, orNull);
    PG_RETURN_FLOAT8(way[0]);
}

FUNCTION_OR_NULL(tessara_direct) {
    const double from[2] = {PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1)};
    double end[3];
    TessaraError error;

    if (!Tessara_End(from, PG_GETARG_FLOAT8(2), PG_GETARG_FLOAT8(3), DatumOf(fcinfo), end, &error))
        return FailureOf(fcinfo, &error, orNull);
    return Triple(fcinfo, end);
}
