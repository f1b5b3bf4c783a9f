/* What the functions of SQL share: errors, names, texts, and what a query prepares once. */
#pragma once

#include "postgres.h"

#include "fmgr.h"
#include "funcapi.h"

#include "boundary.h"

/* Reports an error of the library as one of the server. */
extern void ReportError(TessaraError* error) pg_attribute_noreturn();

/* What a function does about an error: NULL for a position without a result if it is the variant for that, an
 * error of the query otherwise. */
extern Datum FailureOf(FunctionCallInfo fcinfo, TessaraError* error, bool orNull);

/* A function of SQL, and its variant with _or_null behind the name. The body follows in braces. */
#define FUNCTION(name)         \
    PG_FUNCTION_INFO_V1(name); \
    Datum name(PG_FUNCTION_ARGS)
#define FUNCTION_OR_NULL(name)                                         \
    static Datum body_of_##name(FunctionCallInfo fcinfo, bool orNull); \
    FUNCTION(name) {                                                   \
        return body_of_##name(fcinfo, false);                          \
    }                                                                  \
    FUNCTION(name##_or_null) {                                         \
        return body_of_##name(fcinfo, true);                           \
    }                                                                  \
    static Datum body_of_##name(FunctionCallInfo fcinfo, bool orNull)

/* A text of SQL in UTF-8, and the other way. */
extern char* Utf8OfText(const text* value);
extern char* Utf8OfString(const char* string);
extern char* StringOfUtf8(const char* utf8);
extern text* TextOfUtf8(const char* utf8);

/* Prepared once for all rows that a call site of a query sees, and again if a row has other names. They live
 * as long as the call site. A name that is null is that of degrees on WGS84, or of any system for a reader.
 */
extern const TessaraConversion* ConversionOf(FunctionCallInfo fcinfo, const text* from, const text* to);
extern const TessaraReader* ReaderOf(FunctionCallInfo fcinfo, const text* reference);
extern TupleDesc TupleOf(FunctionCallInfo fcinfo);

extern Datum MakeTuple(FunctionCallInfo fcinfo, Datum* values, bool* nulls);

#define PG_GETARG_POSITION(n) ((const TessaraPosition*)PG_GETARG_POINTER(n))
#define PG_GETARG_GRIDREF(n) ((TessaraGridref)PG_GETARG_INT64(n))
#define PG_RETURN_GRIDREF(x) PG_RETURN_INT64((int64)(x))
