#include "files/record_writer.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

#include "conversion/numbers.h"
#include "conversion/quote.h"
#include "files/field_writing.h"
#include "files/json_scan.h"
#include "lines/columns.h"

namespace tessara::program {
namespace {

// The placeholder of a target in lines.
constexpr std::string_view PLACEHOLDER = "*";

// Spaces separate the fields of a target, tabs its texts.
char SeparatorOf(const RecordConversion& conversion) {
    return conversion.texts ? '\t' : ' ';
}

void AppendTarget(const RecordConversion& conversion, std::size_t target, const std::vector<Field>* values,
                  std::string* out) {
    if (values == nullptr) {
        *out += PLACEHOLDER;
        const bool areTwo = conversion.texts && CountTexts(conversion, conversion.to[target]) == 2;
        if (areTwo) (*out += '\t') += PLACEHOLDER;
        return;
    }
    for (const Field& value : *values) {
        if (&value != values->data()) *out += SeparatorOf(conversion);
        AppendText(value, out);
    }
}

// The values of a target at a position, or null.
const std::vector<Field>* ValuesAt(const RecordConversion& conversion, const Results* results,
                                   std::size_t position, std::size_t target) {
    return results == nullptr ? nullptr : &results->values[position * conversion.to.size() + target];
}

// The height of a position that has no member for it.
std::optional<double> HeightAt(const Record& record, const Results* results, std::size_t position) {
    const bool isOutside = record.at.north == NO_MEMBER && results != nullptr;
    return isOutside && position < results->positions.size() ? results->positions[position].height
                                                             : std::nullopt;
}

std::size_t CountPositions(const Record& record, const Results* results) {
    if (results == nullptr) return 1;
    return record.at.north == NO_MEMBER ? results->positions.size() : 1;
}

}  // namespace

std::shared_ptr<const OutputTable> MakeTable(const RecordConversion& conversion, const Layout& layout,
                                             const ResultNames& names) {
    auto table = std::make_shared<OutputTable>();
    const bool hasSeparator = IsTable(layout.form) || (layout.form == Form::LINES && layout.areTexts);
    if (hasSeparator) table->separator = layout.separator;
    if (conversion.output == Form::TSV) table->separator = '\t';
    table->hasHeader = layout.hasHeader || !IsTable(layout.form);
    table->firstResult = layout.resultsAt;
    const auto results = [&] {
        for (const std::vector<std::string>& values : names.values)
            table->names.insert(table->names.end(), values.begin(), values.end());
        if (!layout.hasHeights) return;
        table->height = table->names.size();
        table->names.push_back(names.height);
    };
    const auto keep = [&](std::size_t begin, std::size_t end) {
        table->names.insert(table->names.end(), layout.kept.begin() + static_cast<std::ptrdiff_t>(begin),
                            layout.kept.begin() + static_cast<std::ptrdiff_t>(end));
    };
    keep(0, layout.resultsAt);
    results();
    table->firstKeptBehind = table->names.size();
    keep(layout.resultsAt, layout.kept.size());
    for (std::size_t i = 0; i < table->names.size(); ++i) {
        const bool isKept = i < table->firstResult || i >= table->firstKeptBehind;
        if (isKept) table->places.emplace(table->names[i], i);
    }
    return table;
}

std::string RecordWriter::Append(const Record& record, const Results* results, std::string* out) {
    switch (conversion_.output) {
        case Form::CSV:
        case Form::TSV:
            return AppendRows(record, results, out);
        case Form::JSONL:
            AppendObject(record, results, out);
            return {};
        case Form::GEOJSON:
            AppendFeature(record, results, out);
            return {};
        case Form::LINES:
            AppendLines(record, results, out);
            return {};
    }
    return {};
}

// In lines of texts, the results replace two columns; from other formats, lines contain only the results.
void RecordWriter::AppendLines(const Record& record, const Results* results, std::string* out) {
    if (layout_.form == Form::LINES && layout_.areTexts) return AppendTextLine(record, results, out);
    for (std::size_t position = 0; position < CountPositions(record, results); ++position) {
        for (std::size_t target = 0; target < conversion_.to.size(); ++target) {
            if (target > 0) *out += '\t';
            AppendTarget(conversion_, target, ValuesAt(conversion_, results, position, target), out);
        }
        if (layout_.form == Form::LINES && !record.members.empty()) {
            *out += '\t';
            *out += record.members.front().value.source;
        }
        *out += '\n';
    }
}

void RecordWriter::AppendTextLine(const Record& record, const Results* results, std::string* out) {
    const char separator = layout_.separator;
    bool isFirst = true;
    bool hasResults = false;
    const auto separate = [&] {
        if (!isFirst) *out += separator;
        isFirst = false;
    };
    const auto put = [&] {
        hasResults = true;
        for (std::size_t target = 0; target < conversion_.to.size(); ++target) {
            const std::vector<Field>* const values = ValuesAt(conversion_, results, 0, target);
            for (std::size_t i = 0; i < names_.values[target].size(); ++i) {
                separate();
                std::string text;
                if (values != nullptr) AppendText((*values)[i], &text);
                AppendColumn(values != nullptr ? text : PLACEHOLDER, separator, out);
            }
        }
    };
    for (std::size_t i = 0; i < record.members.size(); ++i) {
        if (i == record.at.north) put();
        if (record.at.Has(i)) continue;
        separate();
        AppendAsColumn(record.members[i].value, separator, out);
    }
    if (!hasResults) put();
    *out += '\n';
}

std::size_t RecordWriter::PlaceOf(std::string_view name, std::size_t hint) const {
    if (hint < table_->names.size() && table_->names[hint] == name) return hint;
    const auto found = table_->places.find(name);
    return found != table_->places.end() ? found->second : NO_MEMBER;
}

// Writes a row for each position, with empty cells for columns that the record does not have.
std::string RecordWriter::AppendRows(const Record& record, const Results* results, std::string* out) {
    row_.assign(table_->names.size(), nullptr);
    lastPlaces_.resize(std::max(lastPlaces_.size(), record.members.size()), NO_MEMBER);
    for (std::size_t i = 0; i < record.members.size(); ++i) {
        if (IsReplaced(conversion_, record.at, i)) continue;
        const std::string_view name = record.members[i].name;
        const std::size_t place = lastPlaces_[i] = PlaceOf(name, lastPlaces_[i]);
        if (place == NO_MEMBER && results == nullptr) continue;
        if (place == NO_MEMBER)
            return "no column for " + Quote(name) + ", which the first file does not have";
        row_[place] = &record.members[i].value;
    }
    for (std::size_t position = 0; position < CountPositions(record, results); ++position) {
        const std::optional<double> height = HeightAt(record, results, position);
        if (height && table_->height == NO_MEMBER)
            return "no column for the height, which the first record does not have";
        const std::size_t begin = out->size();
        AppendKept(0, table_->firstResult, out);
        for (std::size_t target = 0; target < names_.values.size(); ++target)
            AppendCells(ValuesAt(conversion_, results, position, target), names_.values[target].size(), out);
        if (table_->height != NO_MEMBER) {
            if (height) *out += FormatNumber(*height);
            *out += table_->separator;
        }
        AppendKept(table_->firstKeptBehind, table_->names.size(), out);
        // A separator follows each cell.
        if (out->size() > begin) out->back() = '\n';
    }
    return {};
}

void RecordWriter::AppendKept(std::size_t begin, std::size_t end, std::string* out) const {
    for (std::size_t place = begin; place < end; ++place) {
        if (row_[place] != nullptr) AppendAsColumn(*row_[place], table_->separator, out);
        *out += table_->separator;
    }
}

void RecordWriter::AppendCells(const std::vector<Field>* values, std::size_t count, std::string* out) const {
    for (std::size_t i = 0; i < count; ++i) {
        if (values != nullptr) {
            const Field& value = (*values)[i];
            const auto* const text = std::get_if<std::string>(&value.value);
            if (text != nullptr) AppendColumn(*text, table_->separator, out);
            if (text == nullptr) AppendText(value, out);
        }
        *out += table_->separator;
    }
}

void RecordWriter::AppendObject(const Record& record, const Results* results, std::string* out) {
    JsonObject object(out);
    AddMembers(record, results, &object, out);
    object.End();
    *out += '\n';
}

// The results replace the position; if it is not a member, they come first.
void RecordWriter::AddMembers(const Record& record, const Results* results, JsonObject* object,
                              std::string* out) {
    const std::size_t resultsAt = record.at.north < record.members.size() ? record.at.north : 0;
    for (std::size_t i = 0; i < record.members.size(); ++i) {
        if (i == resultsAt) AddResults(record, results, object, out);
        if (IsReplaced(conversion_, record.at, i)) continue;
        AppendAsJson(record.members[i].value, object->Name(record.members[i].name));
    }
    if (record.members.empty()) AddResults(record, results, object, out);
}

void RecordWriter::AddResults(const Record& record, const Results* results, JsonObject* object,
                              std::string* out) {
    for (std::size_t target = 0; target < names_.values.size(); ++target) {
        for (std::size_t i = 0; i < names_.values[target].size(); ++i) {
            object->Name(names_.values[target][i]);
            if (results == nullptr) {
                *out += "null";
                continue;
            }
            const std::function<void(std::size_t)> append = [&](std::size_t position) {
                AppendJson((*ValuesAt(conversion_, results, position, target))[i], out);
            };
            AppendNested(record.geometry, append, out);
        }
    }
    if (conversion_.output == Form::GEOJSON || record.at.north != NO_MEMBER || results == nullptr) return;
    const std::vector<Position>& positions = results->positions;
    const bool hasHeight = std::any_of(positions.begin(), positions.end(),
                                       [](const Position& position) { return position.height.has_value(); });
    if (!hasHeight) return;
    const std::function<void(std::size_t)> append = [&](std::size_t i) {
        // A value that is not finite becomes null.
        AppendNumber(positions[i].height.value_or(std::numeric_limits<double>::quiet_NaN()), out);
    };
    object->Name(names_.height);
    AppendNested(record.geometry, append, out);
}

// A feature keeps its other members, such as an id, except the bounding box of the old geometry.
void RecordWriter::AppendFeature(const Record& record, const Results* results, std::string* out) {
    *out += COLLECTION_SEPARATOR;
    JsonObject feature(out);
    const auto addGeometry = [&] {
        feature.Name("geometry");
        if (results == nullptr) *out += "null";
        if (results != nullptr) AppendGeometry(record.geometry, results->points, out);
    };
    const auto addProperties = [&] {
        feature.Name("properties");
        JsonObject properties(out);
        AddMembers(record, results, &properties, out);
        properties.End();
    };
    bool hasGeometry = false;
    bool hasProperties = false;
    if (record.frame.empty()) feature.Text("type", "Feature");
    for (const Member& member : record.frame) {
        if (member.name == "bbox") continue;
        if (member.name == "geometry") {
            if (!std::exchange(hasGeometry, true)) addGeometry();
        } else if (member.name == "properties") {
            if (!std::exchange(hasProperties, true)) addProperties();
        } else {
            AppendAsJson(member.value, feature.Name(member.name));
        }
    }
    if (!hasGeometry) addGeometry();
    if (!hasProperties) addProperties();
    feature.End();
}

}  // namespace tessara::program
