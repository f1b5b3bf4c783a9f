/* Grid lines and zone borders as rows, each with a path whose points have their longitude as x. */
#include "server.h"

#include "miscadmin.h"
#include "utils/builtins.h"
#include "utils/geo_decls.h"

static void Free(void* lines) {
    Tessara_FreeLines(lines);
}

/* The lines live as long as the call. */
static const TessaraLines* Keep(TessaraLines* lines, TessaraError* error) {
    MemoryContextCallback* callback;

    if (lines == NULL) ReportError(error);
    callback = MemoryContextAllocExtended(CurrentMemoryContext, sizeof *callback, MCXT_ALLOC_NO_OOM);
    if (callback == NULL) {
        Free(lines);
        ereport(ERROR, (errcode(ERRCODE_OUT_OF_MEMORY), errmsg("out of memory")));
    }
    callback->func = Free;
    callback->arg = lines;
    MemoryContextRegisterResetCallback(CurrentMemoryContext, callback);
    return lines;
}

static PATH* PathOf(const TessaraLines* lines, size_t index, size_t placeCount) {
    const size_t size = offsetof(PATH, p) + placeCount * sizeof(Point);
    PATH* path = palloc0(size);

    SET_VARSIZE(path, size);
    path->npts = (int32)placeCount;
    for (size_t i = 0; i < placeCount; i++) {
        double degrees[2];

        Tessara_PlaceAt(lines, index, i, degrees);
        path->p[i].x = degrees[1];
        path->p[i].y = degrees[0];
    }
    return path;
}

static void PutZone(int32 zone, Datum* value, bool* isNull) {
    *value = Int32GetDatum(zone);
    *isNull = zone == TESSARA_NO_ZONE;
}

/* (axis, value, label, zone, part, line) */
static void PutGridLines(ReturnSetInfo* result, const TessaraLines* lines, const char* axis) {
    TessaraLine line;

    for (size_t i = 0; Tessara_LineAt(lines, i, &line); i++) {
        PATH* path = PathOf(lines, i, line.placeCount);
        Datum values[6] = {CStringGetTextDatum(axis),
                           Float8GetDatum(line.value),
                           PointerGetDatum(TextOfUtf8(line.label)),
                           (Datum)0,
                           Int32GetDatum(line.part),
                           PathPGetDatum(path)};
        bool nulls[6] = {false};

        CHECK_FOR_INTERRUPTS();
        PutZone(line.zones[0], &values[3], &nulls[3]);
        tuplestore_putvalues(result->setResult, result->setDesc, values, nulls);
        pfree(path);
    }
}

static void WindowOf(FunctionCallInfo fcinfo, double window[4]) {
    for (int k = 0; k < 4; k++)
        window[k] = PG_GETARG_FLOAT8(k + 1);
}

/* (system, south, west, north, east, step), or with the step of the east values and that of the north values.
 */
FUNCTION(tessara_grid_lines) {
    ReturnSetInfo* result = (ReturnSetInfo*)fcinfo->resultinfo;
    const char* system = text_to_cstring(PG_GETARG_TEXT_PP(0));
    TessaraError error;
    double window[4];

    WindowOf(fcinfo, window);
    InitMaterializedSRF(fcinfo, 0);
    PutGridLines(result,
                 Keep(Tessara_GridLines(system, window, TESSARA_EAST, PG_GETARG_FLOAT8(5), &error), &error),
                 "east");
    CHECK_FOR_INTERRUPTS();
    PutGridLines(result,
                 Keep(Tessara_GridLines(system, window, TESSARA_NORTH,
                                        PG_GETARG_FLOAT8(PG_NARGS() > 6 ? 6 : 5), &error),
                      &error),
                 "north");
    return (Datum)0;
}

/* (system, south, west, north, east) */
FUNCTION(tessara_zone_borders) {
    ReturnSetInfo* result = (ReturnSetInfo*)fcinfo->resultinfo;
    const TessaraLines* lines;
    TessaraError error;
    TessaraLine line;
    double window[4];

    WindowOf(fcinfo, window);
    InitMaterializedSRF(fcinfo, 0);
    lines = Keep(Tessara_ZoneBorders(text_to_cstring(PG_GETARG_TEXT_PP(0)), window, &error), &error);
    for (size_t i = 0; Tessara_LineAt(lines, i, &line); i++) {
        Datum values[4] = {(Datum)0, (Datum)0, Int32GetDatum(line.part),
                           PathPGetDatum(PathOf(lines, i, line.placeCount))};
        bool nulls[4] = {false};

        CHECK_FOR_INTERRUPTS();
        PutZone(line.zones[0], &values[0], &nulls[0]);
        PutZone(line.zones[1], &values[1], &nulls[1]);
        tuplestore_putvalues(result->setResult, result->setDesc, values, nulls);
    }
    return (Datum)0;
}
