#include "server.h"

#include "access/htup_details.h"
#include "mb/pg_wchar.h"
#include "utils/builtins.h"
#include "utils/memutils.h"

PG_MODULE_MAGIC;

static int CodeOf(TessaraErrorKind kind) {
    switch (kind) {
        case TESSARA_NO_POSITION:
            return ERRCODE_NUMERIC_VALUE_OUT_OF_RANGE;
        case TESSARA_WRONG_TEXT:
            return ERRCODE_INVALID_TEXT_REPRESENTATION;
        case TESSARA_WRONG_ARGUMENT:
            return ERRCODE_INVALID_PARAMETER_VALUE;
        case TESSARA_NO_MEMORY:
            return ERRCODE_OUT_OF_MEMORY;
        case TESSARA_INTERNAL:
            break;
    }
    return ERRCODE_INTERNAL_ERROR;
}

void ReportError(TessaraError* error) {
    Tessara_Describe(error);
    ereport(ERROR, (errcode(CodeOf(error->kind)), errmsg("%s", StringOfUtf8(error->message)),
                    error->detail[0] != '\0' ? errdetail("%s", StringOfUtf8(error->detail)) : 0,
                    error->hint[0] != '\0' ? errhint("%s", StringOfUtf8(error->hint)) : 0));
}

Datum FailureOf(FunctionCallInfo fcinfo, TessaraError* error, bool orNull) {
    if (!orNull || (error->kind != TESSARA_NO_POSITION && error->kind != TESSARA_WRONG_TEXT))
        ReportError(error);
    PG_RETURN_NULL();
}

char* Utf8OfString(const char* string) {
    return pg_server_to_any(string, strlen(string), PG_UTF8);
}

char* Utf8OfText(const text* value) {
    return Utf8OfString(text_to_cstring(value));
}

char* StringOfUtf8(const char* utf8) {
    return pg_any_to_server(utf8, strlen(utf8), PG_UTF8);
}

text* TextOfUtf8(const char* utf8) {
    return cstring_to_text(StringOfUtf8(utf8));
}

/* What a call site keeps from row to row. */
typedef struct Kept {
    MemoryContextCallback callback;
    TupleDesc tuple;
    TessaraConversion* conversion;
    TessaraReader* reader;
    char* from;
    char* to;
} Kept;

static void Release(void* argument) {
    Kept* kept = argument;

    Tessara_FreeConversion(kept->conversion);
    Tessara_FreeReader(kept->reader);
    kept->conversion = NULL;
    kept->reader = NULL;
}

static Kept* KeptOf(FunctionCallInfo fcinfo) {
    FmgrInfo* function = fcinfo->flinfo;

    if (function->fn_extra == NULL) {
        Kept* kept = MemoryContextAllocZero(function->fn_mcxt, sizeof(Kept));

        kept->callback.func = Release;
        kept->callback.arg = kept;
        MemoryContextRegisterResetCallback(function->fn_mcxt, &kept->callback);
        function->fn_extra = kept;
    }
    return function->fn_extra;
}

static bool IsName(const char* kept, const text* name) {
    if (kept == NULL || name == NULL) return kept == NULL && name == NULL;
    return strlen(kept) == VARSIZE_ANY_EXHDR(name) &&
           memcmp(kept, VARDATA_ANY(name), VARSIZE_ANY_EXHDR(name)) == 0;
}

/* Memory may run out between the old name and the new one. */
static void KeepName(FunctionCallInfo fcinfo, char** kept, const text* name) {
    char* old = *kept;

    *kept = NULL;
    if (old != NULL) pfree(old);
    if (name != NULL) *kept = MemoryContextStrdup(fcinfo->flinfo->fn_mcxt, text_to_cstring(name));
}

static const char* NameOrDegrees(const text* name) {
    return name == NULL ? "GEODEZ@WGS84" : text_to_cstring(name);
}

const TessaraConversion* ConversionOf(FunctionCallInfo fcinfo, const text* from, const text* to) {
    Kept* kept = KeptOf(fcinfo);
    TessaraError error;

    if (kept->conversion != NULL && IsName(kept->from, from) && IsName(kept->to, to)) return kept->conversion;
    Release(kept);
    KeepName(fcinfo, &kept->from, from);
    KeepName(fcinfo, &kept->to, to);
    kept->conversion = Tessara_NewConversion(NameOrDegrees(from), NameOrDegrees(to), &error);
    if (kept->conversion == NULL) ReportError(&error);
    return kept->conversion;
}

const TessaraReader* ReaderOf(FunctionCallInfo fcinfo, const text* reference) {
    Kept* kept = KeptOf(fcinfo);
    TessaraError error;

    if (kept->reader != NULL && IsName(kept->from, reference)) return kept->reader;
    Release(kept);
    KeepName(fcinfo, &kept->from, reference);
    kept->reader = Tessara_NewReader(reference == NULL ? NULL : text_to_cstring(reference), &error);
    if (kept->reader == NULL) ReportError(&error);
    return kept->reader;
}

TupleDesc TupleOf(FunctionCallInfo fcinfo) {
    Kept* kept = KeptOf(fcinfo);
    MemoryContext before;
    TupleDesc found;

    if (kept->tuple != NULL) return kept->tuple;
    if (get_call_result_type(fcinfo, NULL, &found) != TYPEFUNC_COMPOSITE)
        ereport(ERROR, (errcode(ERRCODE_FEATURE_NOT_SUPPORTED), errmsg("the function returns a row")));
    before = MemoryContextSwitchTo(fcinfo->flinfo->fn_mcxt);
    kept->tuple = BlessTupleDesc(CreateTupleDescCopy(found));
    MemoryContextSwitchTo(before);
    return kept->tuple;
}

Datum MakeTuple(FunctionCallInfo fcinfo, Datum* values, bool* nulls) {
    return HeapTupleGetDatum(heap_form_tuple(TupleOf(fcinfo), values, nulls));
}
