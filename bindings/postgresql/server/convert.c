/* Conversions of positions that are two numbers. */
#include "server.h"

#include "utils/builtins.h"

/* With the zone as an argument behind latitude and longitude, or without. */
static bool UtmOf(FunctionCallInfo fcinfo, TessaraUtm* utm, TessaraError* error) {
    const int32 zone = PG_NARGS() > 2 ? PG_GETARG_INT32(2) : 0;

    if (PG_NARGS() > 2 && zone == 0)
        ereport(ERROR, (errcode(ERRCODE_INVALID_PARAMETER_VALUE), errmsg("UTM has the zones 1 to 60")));
    return Tessara_Utm(PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1), zone, utm, error);
}

#define UTM_FUNCTION(field, RETURN)                                                 \
    FUNCTION_OR_NULL(tessara_utm_##field) {                                         \
        TessaraUtm utm;                                                             \
        TessaraError error;                                                         \
                                                                                    \
        if (!UtmOf(fcinfo, &utm, &error)) return FailureOf(fcinfo, &error, orNull); \
        RETURN(utm.field);                                                          \
    }

UTM_FUNCTION(zone, PG_RETURN_INT32)
UTM_FUNCTION(hemisphere, PG_RETURN_CHAR)
UTM_FUNCTION(easting, PG_RETURN_FLOAT8)
UTM_FUNCTION(northing, PG_RETURN_FLOAT8)

FUNCTION_OR_NULL(tessara_utm) {
    TessaraUtm utm;
    TessaraError error;
    Datum values[4];
    bool nulls[4] = {false};

    if (!UtmOf(fcinfo, &utm, &error)) return FailureOf(fcinfo, &error, orNull);
    values[0] = Int32GetDatum(utm.zone);
    values[1] = CharGetDatum(utm.hemisphere);
    values[2] = Float8GetDatum(utm.easting);
    values[3] = Float8GetDatum(utm.northing);
    return MakeTuple(fcinfo, values, nulls);
}

/* A reference of SQL is the text of its name, spelled in one way. */
FUNCTION(tessara_reference_in) {
    char name[TESSARA_TEXT_SIZE];
    TessaraError error;

    if (!Tessara_CheckReference(Utf8OfString(PG_GETARG_CSTRING(0)), name, &error)) ReportError(&error);
    PG_RETURN_TEXT_P(cstring_to_text(name));
}

FUNCTION(tessara_reference_out) {
    PG_RETURN_CSTRING(text_to_cstring(PG_GETARG_TEXT_PP(0)));
}

/* (latitude, longitude, target) or (north, east, source, target). */
static bool NumbersOf(FunctionCallInfo fcinfo, double numbers[2], TessaraError* error) {
    const bool hasSource = PG_NARGS() > 3;
    const TessaraConversion* conversion =
        ConversionOf(fcinfo, hasSource ? PG_GETARG_TEXT_PP(2) : NULL, PG_GETARG_TEXT_PP(hasSource ? 3 : 2));

    return Tessara_ConvertNumbers(conversion, PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1), numbers, error);
}

#define NUMBER_FUNCTION(name, index)                                                       \
    FUNCTION_OR_NULL(name) {                                                               \
        double numbers[2];                                                                 \
        TessaraError error;                                                                \
                                                                                           \
        if (!NumbersOf(fcinfo, numbers, &error)) return FailureOf(fcinfo, &error, orNull); \
        PG_RETURN_FLOAT8(numbers[index]);                                                  \
    }

NUMBER_FUNCTION(tessara_north, 0)
NUMBER_FUNCTION(tessara_east, 1)

FUNCTION_OR_NULL(tessara_convert) {
    const bool hasSource = PG_NARGS() > 3;
    const TessaraConversion* conversion =
        ConversionOf(fcinfo, hasSource ? PG_GETARG_TEXT_PP(2) : NULL, PG_GETARG_TEXT_PP(hasSource ? 3 : 2));
    TessaraPosition* position = palloc(sizeof(TessaraPosition));
    TessaraError error;

    if (!Tessara_Convert(conversion, PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1), position, &error))
        return FailureOf(fcinfo, &error, orNull);
    PG_RETURN_POINTER(position);
}

FUNCTION_OR_NULL(tessara_convert_position) {
    const TessaraConversion* conversion = ConversionOf(fcinfo, NULL, PG_GETARG_TEXT_PP(1));
    TessaraPosition* position = palloc(sizeof(TessaraPosition));
    TessaraError error;

    if (!Tessara_ConvertPosition(conversion, PG_GETARG_POSITION(0), position, &error))
        return FailureOf(fcinfo, &error, orNull);
    PG_RETURN_POINTER(position);
}
