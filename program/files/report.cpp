#include "files/report.h"

#include "conversion/names.h"
#include "files/json_object.h"

namespace tessara::program {
namespace {

void AddReference(const Reference& reference, JsonObject* object) {
    object->Text("system", SystemName(reference.system));
    object->Text("datum", DatumName(reference.datum));
}

void AddTexts(const RecordConversion& conversion, const Record& record, const Results* results,
              JsonObject* object, std::string* json) {
    const bool isRead = results != nullptr && results->reading;
    const Reference& reference = isRead ? results->reading->reference : conversion.from->reference;
    if (reference.system != NO_SYSTEM) AddReference(reference, object);
    const bool isOne = record.at.north == record.at.east;
    bool hasOthers = false;
    for (std::size_t i = 0; i < record.members.size(); ++i) {
        if (i == record.at.north)
            AppendAsJson(record.members[i].value, object->Name(isOne ? "text" : "north"));
        if (i == record.at.east && !isOne) AppendAsJson(record.members[i].value, object->Name("east"));
        hasOthers = hasOthers || !record.at.Has(i);
    }
    if (!hasOthers) return;
    object->Name("columns");
    JsonObject columns(json);
    for (std::size_t i = 0; i < record.members.size(); ++i) {
        if (!record.at.Has(i)) AppendAsJson(record.members[i].value, columns.Name(record.members[i].name));
    }
    columns.End();
}

void AddDegrees(const RecordConversion& conversion, const Record& record, JsonObject* object) {
    object->Text("datum", DatumName(conversion.datum));
    for (const Position& position : record.positions) {
        object->Number("latitude", position.latitude);
        object->Number("longitude", position.longitude);
        if (position.height) object->Number("height", *position.height);
    }
    for (const Member& member : record.members)
        AppendAsJson(member.value, object->Name(member.name));
}

void AddResult(const RecordConversion& conversion, const Results& results, std::size_t target,
               std::string* json) {
    JsonObject object(json);
    AddReference(conversion.to[target], &object);
    object.Fields(results.values[target]);
    if (conversion.texts) {
        object.Name("fields");
        JsonObject fields(json);
        fields.Fields(FieldsOf(results.koords[target]));
        fields.End();
    }
    object.End();
}

}  // namespace

void AppendReport(const RecordConversion& conversion, const Layout& layout, const Record& record,
                  const Results* results, std::string* json) {
    JsonObject object(json);
    object.Text("file", layout.file);
    *object.Name("line") += std::to_string(record.number);
    if (conversion.from) {
        AddTexts(conversion, record, results, &object, json);
    } else {
        AddDegrees(conversion, record, &object);
    }
    object.Name("results");
    if (results == nullptr) {
        *json += "null";
    } else {
        *json += '[';
        for (std::size_t target = 0; target < conversion.to.size(); ++target) {
            if (target > 0) *json += ',';
            AddResult(conversion, *results, target, json);
        }
        *json += ']';
    }
    object.End();
    *json += '\n';
}

}  // namespace tessara::program
