/* Positions as people type them. */
#include "server.h"

#include "mb/pg_wchar.h"
#include "utils/builtins.h"

static const TessaraReader* ReaderOfArguments(FunctionCallInfo fcinfo) {
    return ReaderOf(fcinfo, PG_NARGS() > 1 ? PG_GETARG_TEXT_PP(1) : NULL);
}

FUNCTION_OR_NULL(tessara_parse) {
    const TessaraReader* reader = ReaderOfArguments(fcinfo);
    TessaraPosition* position = palloc(sizeof(TessaraPosition));
    TessaraError error;

    if (!Tessara_Parse(reader, Utf8OfText(PG_GETARG_TEXT_PP(0)), position, &error))
        return FailureOf(fcinfo, &error, orNull);
    PG_RETURN_POINTER(position);
}

/* The characters of UTF-8 before a byte. */
static int32 CharactersBefore(const char* utf8, size_t byte) {
    int32 count = 0;

    for (size_t i = 0; i < byte; i++)
        count += (utf8[i] & 0xC0) != 0x80;
    return count;
}

/* Whether a text is a position; if not the code, the reason, and the piece with the place of its first
 * character. */
FUNCTION(tessara_check) {
    const TessaraReader* reader = ReaderOfArguments(fcinfo);
    char* typed = Utf8OfText(PG_GETARG_TEXT_PP(0));
    TessaraFinding finding;
    TessaraError error;
    Datum values[5] = {0};
    bool nulls[5] = {false, true, true, true, true};

    if (!Tessara_Check(reader, typed, &finding, &error)) ReportError(&error);
    values[0] = BoolGetDatum(finding.isPosition);
    if (!finding.isPosition) {
        values[1] = PointerGetDatum(TextOfUtf8(finding.code));
        values[2] = PointerGetDatum(TextOfUtf8(finding.reason));
        nulls[1] = nulls[2] = false;
    }
    if (!finding.isPosition && finding.begin < finding.end) {
        values[3] = PointerGetDatum(TextOfUtf8(pnstrdup(typed + finding.begin, finding.end - finding.begin)));
        values[4] = Int32GetDatum(CharactersBefore(typed, finding.begin) + 1);
        nulls[3] = nulls[4] = false;
    }
    return MakeTuple(fcinfo, values, nulls);
}

static Datum Formatted(FunctionCallInfo fcinfo, const TessaraPosition* position, bool orNull) {
    char text[TESSARA_TEXT_SIZE];
    TessaraError error;

    if (!Tessara_Format(position, text, &error)) return FailureOf(fcinfo, &error, orNull);
    PG_RETURN_TEXT_P(TextOfUtf8(text));
}

FUNCTION(tessara_format_position) {
    return Formatted(fcinfo, PG_GETARG_POSITION(0), false);
}

FUNCTION_OR_NULL(tessara_format) {
    const TessaraConversion* conversion = ConversionOf(fcinfo, NULL, PG_GETARG_TEXT_PP(2));
    TessaraPosition position;
    TessaraError error;

    if (!Tessara_Convert(conversion, PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1), &position, &error))
        return FailureOf(fcinfo, &error, orNull);
    return Formatted(fcinfo, &position, orNull);
}
