#include "files/record_writer.h"

#include <vector>

#include "conversion/quote.h"
#include "files/geojson.h"
#include "files/toolkit_names.h"
#include "lines/columns.h"

namespace tessara::program {
namespace {

// A feature keeps what it has besides, like an id, but for the box around its old geometry.
Json FeatureOf(const Record& record, const Output& output) {
    Json feature = record.feature.is_object() ? record.feature : Json{{"type", "Feature"}};
    feature.erase("bbox");
    feature["geometry"] = PointOf(*output.point);
    feature["properties"] = output.members;
    return feature;
}

}  // namespace

void RecordWriter::AppendHeader(const Record& header, const Output& output, std::string* text) {
    if (form_ != Form::CSV || columns_) return;
    separator_ = header.separator;
    columns_.emplace();
    std::vector<std::string> names;
    for (const auto& member : output.members.items()) {
        columns_->emplace(member.key(), names.size());
        names.push_back(member.key());
    }
    *text += JoinColumns(names, separator_) + '\n';
}

std::string RecordWriter::Append(const Record& record, const Output& output, std::string* text) {
    switch (form_) {
        case Form::CSV:
            AppendHeader(record, output, text);
            return AppendRow(output.members, text);
        case Form::JSONL:
            *text += Dump(output.members) + '\n';
            return {};
        case Form::GEOJSON:
            AppendFeature(FeatureOf(record, output), text);
            return {};
        case Form::LINES:
            *text += output.line + '\n';
            return {};
    }
    return {};
}

void RecordWriter::AppendFeature(const Json& feature, std::string* text) {
    *text += (hasFeatures_ ? COLLECTION_SEPARATOR : COLLECTION_START) + Dump(feature);
    hasFeatures_ = true;
}

std::string RecordWriter::Finish() {
    if (form_ != Form::GEOJSON) return {};
    return (hasFeatures_ ? "" : std::string(COLLECTION_START)) + COLLECTION_END;
}

// Columns that a record doesn't have stay empty.
std::string RecordWriter::AppendRow(const Json& members, std::string* text) {
    std::vector<std::string> row(columns_->size());
    for (const auto& member : members.items()) {
        const auto column = columns_->find(member.key());
        if (column == columns_->end())
            return "has " + Quote(member.key()) + ", which the first record hasn't: CSV has no column for it";
        row[column->second] = TextOf(member.value());
    }
    *text += JoinColumns(row, separator_) + '\n';
    return {};
}

}  // namespace tessara::program
