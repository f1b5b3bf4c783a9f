/* The systems and the datums as rows. */
#include "server.h"

#include "catalog/pg_type.h"
#include "utils/array.h"
#include "utils/builtins.h"

static Datum FieldsOf(const TessaraSystem* system) {
    Datum names[TESSARA_FIELD_COUNT];

    for (size_t k = 0; k < system->fieldCount; k++)
        names[k] = CStringGetTextDatum(system->fields[k]);
    return PointerGetDatum(construct_array(names, (int)system->fieldCount, TEXTOID, -1, false, TYPALIGN_INT));
}

FUNCTION(tessara_systems) {
    ReturnSetInfo* result = (ReturnSetInfo*)fcinfo->resultinfo;
    TessaraSystem system;

    InitMaterializedSRF(fcinfo, 0);
    for (size_t i = 0; Tessara_SystemAt(i, &system); i++) {
        Datum values[4] = {Int32GetDatum(system.number), CStringGetTextDatum(system.name),
                           CStringGetTextDatum(system.unit), FieldsOf(&system)};
        bool nulls[4] = {false};

        tuplestore_putvalues(result->setResult, result->setDesc, values, nulls);
    }
    return (Datum)0;
}

FUNCTION(tessara_datums) {
    ReturnSetInfo* result = (ReturnSetInfo*)fcinfo->resultinfo;
    TessaraDatumRow datum;

    InitMaterializedSRF(fcinfo, 0);
    for (size_t i = 0; Tessara_DatumAt(i, &datum); i++) {
        Datum values[8] = {
            Int32GetDatum(datum.number), CStringGetTextDatum(datum.name), (Datum)0,
            Float8GetDatum(datum.a),     Float8GetDatum(datum.f),         Float8GetDatum(datum.dx),
            Float8GetDatum(datum.dy),    Float8GetDatum(datum.dz)};
        bool nulls[8] = {false};

        nulls[2] = datum.ellipsoid == NULL;
        if (!nulls[2]) values[2] = CStringGetTextDatum(datum.ellipsoid);
        tuplestore_putvalues(result->setResult, result->setDesc, values, nulls);
    }
    return (Datum)0;
}
