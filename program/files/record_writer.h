// Writes records in the format of the output.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "files/json_object.h"
#include "files/record_conversion.h"
#include "files/result_names.h"

namespace tessara::program {

// The columns of a table, which the first input file determines.
struct OutputTable {
    char separator = ',';
    std::vector<std::string> names;
    std::unordered_map<std::string_view, std::size_t> places;  // the columns of copied members, by name
    std::size_t firstResult = 0;
    std::size_t firstKeptBehind = 0;
    std::size_t height = NO_MEMBER;  // of heights that are not members
    bool hasHeader = true;
};

[[nodiscard]] std::shared_ptr<const OutputTable> MakeTable(const RecordConversion& conversion,
                                                           const Layout& layout, const ResultNames& names);

// The text around features and between them.
inline constexpr std::string_view COLLECTION_START = "{\"type\":\"FeatureCollection\",\"features\":[\n";
inline constexpr std::string_view COLLECTION_SEPARATOR = ",\n";
inline constexpr std::string_view COLLECTION_END = "\n]}\n";

// Writes the records of one file. A separator precedes each feature.
class RecordWriter {
  public:
    RecordWriter(const RecordConversion& conversion, const Layout& layout, const ResultNames& names,
                 const OutputTable* table)
        : conversion_(conversion), layout_(layout), names_(names), table_(table) {}

    // Appends a record with its results, or with placeholders without results. Returns the error, or an empty
    // text.
    [[nodiscard]] std::string Append(const Record& record, const Results* results, std::string* out);

  private:
    void AppendLines(const Record& record, const Results* results, std::string* out);
    void AppendTextLine(const Record& record, const Results* results, std::string* out);
    std::string AppendRows(const Record& record, const Results* results, std::string* out);
    void AppendKept(std::size_t begin, std::size_t end, std::string* out) const;
    void AppendCells(const std::vector<Field>* values, std::size_t count, std::string* out) const;
    void AppendObject(const Record& record, const Results* results, std::string* out);
    void AddMembers(const Record& record, const Results* results, JsonObject* object, std::string* out);
    void AddResults(const Record& record, const Results* results, JsonObject* object, std::string* out);
    void AppendFeature(const Record& record, const Results* results, std::string* out);
    [[nodiscard]] std::size_t PlaceOf(std::string_view name, std::size_t hint) const;

    const RecordConversion& conversion_;
    const Layout& layout_;
    const ResultNames& names_;
    const OutputTable* table_;
    std::vector<const Value*> row_;
    std::vector<std::size_t> lastPlaces_;  // of the members of the previous record, which often are the same
};

}  // namespace tessara::program
