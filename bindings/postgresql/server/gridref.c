/* The type tessara_gridref: military references and their squares, as numbers that a B-tree orders. */
#include "server.h"

#include "access/stratnum.h"
#include "catalog/pg_type.h"
#include "common/hashfn.h"
#include "libpq/pqformat.h"
#include "nodes/makefuncs.h"
#include "nodes/nodeFuncs.h"
#include "nodes/supportnodes.h"
#include "utils/lsyscache.h"
#include "utils/sortsupport.h"

#include "comparisons.h"

FUNCTION(tessara_gridref_in) {
    TessaraGridref gridref;
    TessaraError error;

    if (!Tessara_ReadGridref(Utf8OfString(PG_GETARG_CSTRING(0)), &gridref, &error)) ReportError(&error);
    PG_RETURN_GRIDREF(gridref);
}

FUNCTION(tessara_gridref_out) {
    char* text = palloc(TESSARA_GRIDREF_SIZE);

    Tessara_WriteGridref(PG_GETARG_GRIDREF(0), text);
    PG_RETURN_CSTRING(text);
}

FUNCTION(tessara_gridref_send) {
    StringInfoData buffer;

    pq_begintypsend(&buffer);
    pq_sendint64(&buffer, PG_GETARG_GRIDREF(0));
    PG_RETURN_BYTEA_P(pq_endtypsend(&buffer));
}

FUNCTION(tessara_gridref_recv) {
    const TessaraGridref gridref = (TessaraGridref)pq_getmsgint64((StringInfo)PG_GETARG_POINTER(0));

    if (!Tessara_IsGridref(gridref))
        ereport(ERROR,
                (errcode(ERRCODE_INVALID_BINARY_REPRESENTATION), errmsg("this is no military reference")));
    PG_RETURN_GRIDREF(gridref);
}

FUNCTION_OR_NULL(tessara_gridref) {
    TessaraGridref gridref;
    TessaraError error;

    if (!Tessara_Gridref(PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1), &gridref, &error))
        return FailureOf(fcinfo, &error, orNull);
    PG_RETURN_GRIDREF(gridref);
}

FUNCTION_OR_NULL(tessara_square) {
    TessaraGridref gridref;
    TessaraError error;

    if (!Tessara_Square(PG_GETARG_FLOAT8(0), PG_GETARG_FLOAT8(1), PG_GETARG_INT32(2), &gridref, &error))
        return FailureOf(fcinfo, &error, orNull);
    PG_RETURN_GRIDREF(gridref);
}

FUNCTION(tessara_square_around) {
    TessaraGridref gridref;
    TessaraError error;

    if (!Tessara_SquareAround(PG_GETARG_GRIDREF(0), PG_GETARG_INT32(1), &gridref, &error))
        ReportError(&error);
    PG_RETURN_GRIDREF(gridref);
}

FUNCTION(tessara_side) {
    PG_RETURN_INT32(Tessara_SideOf(PG_GETARG_GRIDREF(0)));
}

static int Compare(TessaraGridref one, TessaraGridref other) {
    return one < other ? -1 : one > other;
}

COMPARISONS(gridref, PG_GETARG_GRIDREF, Compare)

static int CompareToSort(Datum one, Datum other, SortSupport sort) {
    return Compare((TessaraGridref)DatumGetInt64(one), (TessaraGridref)DatumGetInt64(other));
}

FUNCTION(tessara_gridref_sortsupport) {
    ((SortSupport)PG_GETARG_POINTER(0))->comparator = CompareToSort;
    PG_RETURN_VOID();
}

FUNCTION(tessara_gridref_hash) {
    const TessaraGridref gridref = PG_GETARG_GRIDREF(0);

    PG_RETURN_UINT32(hash_bytes((const unsigned char*)&gridref, sizeof gridref));
}

FUNCTION(tessara_gridref_hash_extended) {
    const TessaraGridref gridref = PG_GETARG_GRIDREF(0);

    PG_RETURN_UINT64(hash_bytes_extended((const unsigned char*)&gridref, sizeof gridref, PG_GETARG_INT64(1)));
}

static bool IsIn(TessaraGridref gridref, TessaraGridref square) {
    return gridref >= square && gridref <= Tessara_LastIn(square);
}

FUNCTION(tessara_gridref_is_in) {
    PG_RETURN_BOOL(IsIn(PG_GETARG_GRIDREF(0), PG_GETARG_GRIDREF(1)));
}

FUNCTION(tessara_gridref_contains) {
    PG_RETURN_BOOL(IsIn(PG_GETARG_GRIDREF(1), PG_GETARG_GRIDREF(0)));
}

/* As LIKE does: % for any text, _ for any letter. */
static bool IsLike(const char* text, const char* pattern) {
    for (; *pattern != '\0' && *pattern != '%'; text++, pattern++) {
        if (*text == '\0' || (*pattern != '_' && *pattern != *text)) return false;
    }
    if (*pattern == '\0') return *text == '\0';
    while (pattern[1] == '%')
        pattern++;
    for (;; text++) {
        if (IsLike(text, pattern + 1)) return true;
        if (*text == '\0') return false;
    }
}

FUNCTION(tessara_gridref_like) {
    char text[TESSARA_GRIDREF_SIZE];

    Tessara_WriteGridref(PG_GETARG_GRIDREF(0), text);
    PG_RETURN_BOOL(IsLike(text, PG_GETARG_CSTRING(1)));
}

FUNCTION(tessara_gridref_not_like) {
    char text[TESSARA_GRIDREF_SIZE];

    Tessara_WriteGridref(PG_GETARG_GRIDREF(0), text);
    PG_RETURN_BOOL(!IsLike(text, PG_GETARG_CSTRING(1)));
}

static Expr* Bound(Oid family, int strategy, Node* indexed, Oid type, TessaraGridref bound) {
    const Oid operator= get_opfamily_member(family, type, type, (int16)strategy);
    Const* value =
        makeConst(type, -1, InvalidOid, sizeof(int64), Int64GetDatum((int64)bound), false, FLOAT8PASSBYVAL);

    if (!OidIsValid(operator)) return NULL;
    return make_opclause(operator, BOOLOID, false, (Expr*)indexed, (Expr*)value, InvalidOid, InvalidOid);
}

/* The references in a square are those from the square to the last in it, which an index finds. */
static Node* RangeOf(const SupportRequestIndexCondition* request, int indexedArgument) {
    const OpExpr* clause = (const OpExpr*)request->node;
    Node* indexed;
    Node* square;
    Expr* first;
    Expr* last;
    TessaraGridref low;
    Oid type;

    if (!is_opclause(request->node) || request->indexarg != indexedArgument) return NULL;
    indexed = list_nth(clause->args, indexedArgument);
    square = list_nth(clause->args, 1 - indexedArgument);
    if (!IsA(square, Const) || ((Const*)square)->constisnull) return NULL;
    low = (TessaraGridref)DatumGetInt64(((Const*)square)->constvalue);
    type = exprType(square);
    first = Bound(request->opfamily, BTGreaterEqualStrategyNumber, indexed, type, low);
    last = Bound(request->opfamily, BTLessEqualStrategyNumber, indexed, type, Tessara_LastIn(low));
    return first == NULL || last == NULL ? NULL : (Node*)list_make2(first, last);
}

static Datum Support(FunctionCallInfo fcinfo, int indexedArgument) {
    Node* request = (Node*)PG_GETARG_POINTER(0);
    Node* range;

    if (!IsA(request, SupportRequestIndexCondition)) PG_RETURN_POINTER(NULL);
    range = RangeOf((SupportRequestIndexCondition*)request, indexedArgument);
    if (range != NULL) ((SupportRequestIndexCondition*)request)->lossy = false;
    PG_RETURN_POINTER(range);
}

FUNCTION(tessara_gridref_is_in_support) {
    return Support(fcinfo, 0);
}

FUNCTION(tessara_gridref_contains_support) {
    return Support(fcinfo, 1);
}
