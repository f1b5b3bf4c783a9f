/* Conversions of whole arrays. */
#include "server.h"

#include <math.h>

#include "catalog/pg_type.h"
#include "miscadmin.h"
#include "utils/array.h"
#include "utils/lsyscache.h"

/* Rows between two looks at whether the query was cancelled. */
#define ROWS_AT_ONCE 65536

/* Two arrays of one length; elements that are NULL are NaN in the numbers. */
typedef struct Rows {
    size_t count;
    const double* norths;
    const double* easts;
    bool* nulls; /* none if no element is */
} Rows;

static const double* NumbersOfArray(ArrayType* array, size_t count, bool** nulls) {
    Datum* elements;
    bool* elementNulls;
    int elementCount;
    double* numbers;

    if (!array_contains_nulls(array)) return (const double*)ARR_DATA_PTR(array);
    deconstruct_array(array, FLOAT8OID, sizeof(float8), FLOAT8PASSBYVAL, TYPALIGN_DOUBLE, &elements,
                      &elementNulls, &elementCount);
    numbers = palloc(count * sizeof(double));
    if (*nulls == NULL) *nulls = palloc0(count * sizeof(bool));
    for (size_t i = 0; i < count; i++) {
        numbers[i] = elementNulls[i] ? NAN : DatumGetFloat8(elements[i]);
        (*nulls)[i] |= elementNulls[i];
    }
    return numbers;
}

static size_t CountOf(ArrayType* array) {
    if (ARR_NDIM(array) > 1)
        ereport(ERROR,
                (errcode(ERRCODE_ARRAY_SUBSCRIPT_ERROR), errmsg("the arrays must have one dimension")));
    return (size_t)ArrayGetNItems(ARR_NDIM(array), ARR_DIMS(array));
}

static Rows RowsOf(FunctionCallInfo fcinfo) {
    ArrayType* norths = PG_GETARG_ARRAYTYPE_P(0);
    ArrayType* easts = PG_GETARG_ARRAYTYPE_P(1);
    Rows rows = {CountOf(norths), NULL, NULL, NULL};

    if (CountOf(easts) != rows.count)
        ereport(ERROR, (errcode(ERRCODE_ARRAY_SUBSCRIPT_ERROR), errmsg("the arrays have different lengths"),
                        errdetail("They have %zu and %zu elements.", rows.count, CountOf(easts))));
    rows.norths = NumbersOfArray(norths, rows.count, &rows.nulls);
    rows.easts = NumbersOfArray(easts, rows.count, &rows.nulls);
    return rows;
}

static bool IsNull(const Rows* rows, size_t i) {
    return rows->nulls != NULL && rows->nulls[i];
}

/* Says which element an error is about. */
static void NameElement(void* row) {
    errcontext("element %zu of the arrays", *(const size_t*)row + 1);
}

static void ReportRow(size_t row, TessaraError* error) {
    ErrorContextCallback context = {error_context_stack, NameElement, &row};

    error_context_stack = &context;
    ReportError(error);
}

/* An array of the elements that aren't null. */
static Datum ArrayOf(Datum* values, const bool* nulls, size_t count, Oid type, int size) {
    int counts[1] = {(int)count};
    int firsts[1] = {1};

    if (count == 0) return PointerGetDatum(construct_empty_array(type));
    return PointerGetDatum(construct_md_array(values, (bool*)nulls, 1, counts, firsts, type, size, true,
                                              size == sizeof(int32) ? TYPALIGN_INT : TYPALIGN_DOUBLE));
}

FUNCTION_OR_NULL(tessara_convert_array) {
    const TessaraConversion* conversion = ConversionOf(fcinfo, NULL, PG_GETARG_TEXT_PP(2));
    const Rows rows = RowsOf(fcinfo);
    const bool hasZones = Tessara_HasZones(conversion);
    double* numbers[3];
    bool* missing = palloc0(rows.count * sizeof(bool) + 1);
    Datum* elements = palloc(rows.count * sizeof(Datum) + 1);
    Datum values[3];
    bool nulls[3] = {false, false, !hasZones};

    for (int k = 0; k < 3; k++)
        numbers[k] = palloc(rows.count * sizeof(double) + 1);
    for (size_t first = 0; first < rows.count; first += ROWS_AT_ONCE) {
        const size_t count = Min(ROWS_AT_ONCE, rows.count - first);
        TessaraError error;
        size_t failed =
            Tessara_ConvertArrays(conversion, rows.norths + first, rows.easts + first, count,
                                  numbers[0] + first, numbers[1] + first, numbers[2] + first, &error);

        if (failed < count && error.kind != TESSARA_NO_POSITION) ReportError(&error);
        for (; failed < count; failed++) {
            const size_t row = first + failed;

            missing[row] = isnan(numbers[0][row]);
            if (!missing[row] || orNull || IsNull(&rows, row)) continue;
            Tessara_ConvertArrays(conversion, rows.norths + row, rows.easts + row, 1, numbers[0] + row,
                                  numbers[1] + row, numbers[2] + row, &error);
            ReportRow(row, &error);
        }
        CHECK_FOR_INTERRUPTS();
    }
    for (int k = 0; k < 2; k++) {
        for (size_t i = 0; i < rows.count; i++)
            elements[i] = Float8GetDatum(numbers[k][i]);
        values[k] = ArrayOf(elements, missing, rows.count, FLOAT8OID, sizeof(float8));
    }
    for (size_t i = 0; hasZones && i < rows.count; i++)
        elements[i] = Int32GetDatum(missing[i] ? 0 : (int32)numbers[2][i]);
    values[2] = hasZones ? ArrayOf(elements, missing, rows.count, INT4OID, sizeof(int32)) : (Datum)0;
    return MakeTuple(fcinfo, values, nulls);
}

/* (latitudes, longitudes) for metres, or with the side of the squares. */
FUNCTION_OR_NULL(tessara_gridref_array) {
    const Rows rows = RowsOf(fcinfo);
    const bool isSquare = PG_NARGS() > 2;
    Datum* elements = palloc(rows.count * sizeof(Datum) + 1);
    bool* missing = palloc0(rows.count * sizeof(bool) + 1);

    for (size_t i = 0; i < rows.count; i++) {
        TessaraGridref gridref = 0;
        TessaraError error;

        if (i % 1024 == 0) CHECK_FOR_INTERRUPTS();
        missing[i] = IsNull(&rows, i);
        if (missing[i]) continue;
        missing[i] =
            isSquare ? !Tessara_Square(rows.norths[i], rows.easts[i], PG_GETARG_INT32(2), &gridref, &error)
                     : !Tessara_Gridref(rows.norths[i], rows.easts[i], &gridref, &error);
        if (missing[i] && (!orNull || error.kind != TESSARA_NO_POSITION)) ReportRow(i, &error);
        elements[i] = Int64GetDatum((int64)gridref);
    }
    return ArrayOf(elements, missing, rows.count, get_element_type(get_func_rettype(fcinfo->flinfo->fn_oid)),
                   sizeof(int64));
}
