/* The type tessara_position: a record of any system on any datum, compared by the place that it stands for.
 */
#include "server.h"

#include "common/hashfn.h"
#include "libpq/pqformat.h"
#include "utils/builtins.h"
#include "utils/geo_decls.h"

#include "comparisons.h"

FUNCTION(tessara_position_in) {
    TessaraPosition* position = palloc(sizeof(TessaraPosition));
    TessaraError error;

    if (!Tessara_ReadPosition(Utf8OfString(PG_GETARG_CSTRING(0)), position, &error)) ReportError(&error);
    PG_RETURN_POINTER(position);
}

FUNCTION(tessara_position_out) {
    char text[TESSARA_TEXT_SIZE];

    Tessara_WritePosition(PG_GETARG_POSITION(0), text);
    PG_RETURN_CSTRING(pstrdup(text));
}

FUNCTION(tessara_position_send) {
    StringInfoData buffer;

    pq_begintypsend(&buffer);
    pq_sendbytes(&buffer, (const char*)PG_GETARG_POSITION(0), sizeof(TessaraPosition));
    PG_RETURN_BYTEA_P(pq_endtypsend(&buffer));
}

FUNCTION(tessara_position_recv) {
    TessaraPosition bytes;
    TessaraPosition* position = palloc(sizeof(TessaraPosition));
    TessaraError error;

    pq_copymsgbytes((StringInfo)PG_GETARG_POINTER(0), (char*)&bytes, sizeof bytes);
    if (!Tessara_CheckPosition(&bytes, position, &error))
        ereport(ERROR, (errcode(ERRCODE_INVALID_BINARY_REPRESENTATION), errmsg("%s", error.message),
                        errdetail("%s", error.detail)));
    PG_RETURN_POINTER(position);
}

static int CompareNumbers(double one, double other) {
    return one < other ? -1 : one > other;
}

static int Compare(const TessaraPosition* one, const TessaraPosition* other) {
    double places[2][2];
    int byLatitude;

    if (memcmp(one, other, sizeof *one) == 0) return 0;
    Tessara_PlaceOf(one, places[0]);
    Tessara_PlaceOf(other, places[1]);
    byLatitude = CompareNumbers(places[0][0], places[1][0]);
    return byLatitude != 0 ? byLatitude : CompareNumbers(places[0][1], places[1][1]);
}

COMPARISONS(position, PG_GETARG_POSITION, Compare)

FUNCTION(tessara_position_hash) {
    double place[2];

    Tessara_PlaceOf(PG_GETARG_POSITION(0), place);
    PG_RETURN_UINT32(hash_bytes((const unsigned char*)place, sizeof place));
}

FUNCTION(tessara_position_hash_extended) {
    double place[2];

    Tessara_PlaceOf(PG_GETARG_POSITION(0), place);
    PG_RETURN_UINT64(hash_bytes_extended((const unsigned char*)place, sizeof place, PG_GETARG_INT64(1)));
}

FUNCTION_OR_NULL(tessara_position) {
    TessaraPosition* position = palloc(sizeof(TessaraPosition));
    TessaraError error;

    if (!Tessara_PositionAt(PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1), position, &error))
        return FailureOf(fcinfo, &error, orNull);
    PG_RETURN_POINTER(position);
}

/* A point of the server has its longitude as x. */
FUNCTION(tessara_position_of_point) {
    const Point* point = PG_GETARG_POINT_P(0);
    TessaraPosition* position = palloc(sizeof(TessaraPosition));
    TessaraError error;

    if (!Tessara_PositionAt(point->y, point->x, position, &error)) ReportError(&error);
    PG_RETURN_POINTER(position);
}

FUNCTION(tessara_point_of_position) {
    Point* point = palloc(sizeof(Point));
    double degrees[2];

    Tessara_DegreesOf(PG_GETARG_POSITION(0), degrees);
    point->x = degrees[1];
    point->y = degrees[0];
    PG_RETURN_POINT_P(point);
}

FUNCTION(tessara_position_of_gridref) {
    TessaraPosition* position = palloc(sizeof(TessaraPosition));
    TessaraError error;

    if (!Tessara_PositionOfGridref(PG_GETARG_GRIDREF(0), position, &error)) ReportError(&error);
    PG_RETURN_POINTER(position);
}

FUNCTION(tessara_latitude) {
    double degrees[2];

    Tessara_DegreesOf(PG_GETARG_POSITION(0), degrees);
    PG_RETURN_FLOAT8(degrees[0]);
}

FUNCTION(tessara_longitude) {
    double degrees[2];

    Tessara_DegreesOf(PG_GETARG_POSITION(0), degrees);
    PG_RETURN_FLOAT8(degrees[1]);
}

/* A number of the position by its name; NULL where its system has none of this name. */
FUNCTION(tessara_number) {
    double number;

    if (!Tessara_NumberOf(PG_GETARG_POSITION(0), Utf8OfText(PG_GETARG_TEXT_PP(1)), &number)) PG_RETURN_NULL();
    PG_RETURN_FLOAT8(number);
}

FUNCTION(tessara_reference_of) {
    char text[TESSARA_TEXT_SIZE];

    Tessara_ReferenceOf(PG_GETARG_POSITION(0), text);
    PG_RETURN_TEXT_P(cstring_to_text(text));
}
