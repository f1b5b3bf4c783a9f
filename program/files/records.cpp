#include "files/records.h"

#include <algorithm>
#include <string_view>

#include "conversion/numbers.h"
#include "files/geojson.h"
#include "files/toolkit_names.h"
#include "lines/columns.h"
#include "lines/line_reader.h"

namespace tessara::program {
namespace {

// More than that is no record, but a quote that isn't closed.
constexpr std::size_t LONGEST_CSV_RECORD = std::size_t{1} << 20;

constexpr std::string_view BLANKS = " \t\r";

using Names = std::vector<std::string_view>;

const Names NORTH_NAMES{"north"};
const Names EAST_NAMES{"east"};
const Names LATITUDE_NAMES{"latitude", "lat"};
const Names LONGITUDE_NAMES{"longitude", "lon", "lng", "long"};
const Names HEIGHT_NAMES{"height"};

bool IsBlank(std::string_view line) {
    return line.find_first_not_of(BLANKS) == std::string_view::npos;
}

std::string LowerCase(std::string text) {
    for (char& c : text) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return text;
}

// The first member with one of the names, in any case; empty if there is none.
std::string FindMember(const Json& members, const Names& names) {
    for (const auto& member : members.items()) {
        if (std::find(names.begin(), names.end(), LowerCase(member.key())) != names.end())
            return member.key();
    }
    return {};
}

PositionNames FindNames(const Json& members, const ReadOptions& options) {
    if (options.columns.empty() && options.areTexts)
        return {FindMember(members, NORTH_NAMES), FindMember(members, EAST_NAMES), {}};
    if (options.columns.empty())
        return {FindMember(members, LATITUDE_NAMES), FindMember(members, LONGITUDE_NAMES),
                FindMember(members, HEIGHT_NAMES)};
    const auto named = [&](std::size_t i) {
        return i < options.columns.size() && members.contains(options.columns[i]) ? options.columns[i] : "";
    };
    return {named(0), named(1), named(2)};
}

// How the members should be called where nobody tells.
std::vector<std::string> DefaultNames(const ReadOptions& options) {
    return options.areTexts ? std::vector<std::string>{"north", "east"}
                            : std::vector<std::string>{"latitude", "longitude"};
}

// Members are columns in some files: `what` they are.
std::string WrongNames(const PositionNames& names, const ReadOptions& options, const std::string& what) {
    const bool areGiven = !options.columns.empty();
    const std::vector<std::string> wanted = areGiven ? options.columns : DefaultNames(options);
    if (names.north.empty() || names.east.empty()) {
        return "has no " + what + "s '" + wanted[0] + "' and '" + wanted[1] + "'" +
               (areGiven ? "" : "; --columns tells how they are called");
    }
    const bool isHeightMissing = options.columns.size() == 3 && names.height.empty();
    return isHeightMissing ? "has no " + what + " '" + wanted[2] + "'" : "";
}

Json MembersOf(const std::vector<std::string>& header) {
    Json members = Json::object();
    for (std::string& name : NamesOfColumns(header))
        AddMember(std::move(name), "", &members);
    return members;
}

std::string PlaceOf(const std::string& file, std::size_t line) {
    return file + ":" + std::to_string(line);
}

// The records of a CSV file, as they stand there.
class CsvReader {
  public:
    explicit CsvReader(std::istream& stream) : lines_(stream) {}

    // The next line that isn't blank, with those lines after it that belong to the same record.
    bool Next(std::optional<char> known, std::string* text) {
        do {
            if (!lines_.Next(text)) return false;
        } while (IsBlank(*text));
        start_ = lines_.Number();
        const char separator = known ? *known : SeparatorOf(*text);
        OpenQuotes quotes;
        quotes.Read(*text, separator);
        isUnclosed_ = false;
        for (std::string line; quotes.AreOpen();) {
            isUnclosed_ = text->size() > LONGEST_CSV_RECORD || !lines_.Next(&line);
            if (isUnclosed_) break;
            quotes.Read(line, separator);
            *text += '\n';
            *text += line;
        }
        return true;
    }

    // Of the record that was read last.
    [[nodiscard]] bool IsUnclosed() const { return isUnclosed_; }
    [[nodiscard]] std::size_t FirstLine() const { return start_; }

  private:
    LineReader lines_;
    std::size_t start_ = 0;
    bool isUnclosed_ = false;
};

void FillCsv(const Json& header, char separator, Record* record) {
    std::vector<std::string> columns = SplitColumns(WithoutCarriageReturn(record->source), separator);
    if (columns.size() != header.size()) {
        record->error = "has " + std::to_string(columns.size()) +
                        (columns.size() == 1 ? " column" : " columns") + ", and the header " +
                        std::to_string(header.size());
        return;
    }
    record->members = header;
    auto column = columns.begin();
    for (auto& member : record->members)
        member = std::move(*column++);
}

void ReadCsv(std::istream& stream, const std::string& file, const ReadOptions& options, RecordSink* sink) {
    CsvReader records(stream);
    Record header;
    if (!records.Next(std::nullopt, &header.source)) return;
    const char separator = SeparatorOf(header.source);
    header.separator = separator;
    header.place = PlaceOf(file, records.FirstLine());
    header.members = MembersOf(SplitColumns(WithoutCarriageReturn(header.source), separator));
    header.names = FindNames(header.members, options);
    header.error = records.IsUnclosed() ? "opens a quote that isn't closed"
                                        : WrongNames(header.names, options, "column");
    if (!header.error.empty()) {
        header.source.clear();
        return sink->TakeRecord(std::move(header));
    }
    sink->TakeHeader(header);

    for (Record record; records.Next(separator, &record.source); record = Record()) {
        record.place = PlaceOf(file, records.FirstLine());
        record.names = header.names;
        if (records.IsUnclosed()) {
            record.error = "opens a quote that isn't closed";
        } else {
            FillCsv(header.members, separator, &record);
        }
        sink->TakeRecord(std::move(record));
    }
}

void ReadJsonLines(std::istream& stream, const std::string& file, const ReadOptions& options,
                   RecordSink* sink) {
    LineReader lines(stream);
    for (Record record; lines.Next(&record.source); record = Record()) {
        if (IsBlank(record.source)) continue;
        record.place = PlaceOf(file, lines.Number());
        record.error = ParseJson(record.source, &record.members);
        if (record.error.empty() && !record.members.is_object()) record.error = "is no JSON object";
        if (record.error.empty()) {
            record.names = FindNames(record.members, options);
            record.error = WrongNames(record.names, options, "member");
        }
        sink->TakeRecord(std::move(record));
    }
}

// Lines `latitude longitude [height]`.
void ReadDegrees(std::istream& stream, const std::string& file, RecordSink* sink) {
    LineReader lines(stream);
    for (Record record; lines.Next(&record.source); record = Record()) {
        const Line line = ReadLine(record.source);
        if (!line.position && line.error.empty()) continue;
        record.place = PlaceOf(file, lines.Number());
        record.position = line.position;
        record.error = line.error;
        sink->TakeRecord(std::move(record));
    }
}

// Columns without a header: the north text, the east text, and others, which are called by their numbers.
void ReadTexts(std::istream& stream, const std::string& file, RecordSink* sink) {
    LineReader lines(stream);
    std::optional<char> separator;
    for (Record record; lines.Next(&record.source); record = Record()) {
        if (IsBlank(record.source) || record.source.starts_with('#')) continue;
        if (!separator) separator = SeparatorOf(record.source);
        record.place = PlaceOf(file, lines.Number());
        record.names = {"north", "east", {}};
        const std::vector<std::string> columns =
            SplitColumns(WithoutCarriageReturn(record.source), *separator);
        if (columns.size() < 2) record.error = "has 1 column";
        for (std::size_t i = 0; i < columns.size(); ++i)
            AddMember(i == 0   ? "north"
                      : i == 1 ? "east"
                               : std::to_string(i + 1),
                      columns[i], &record.members);
        sink->TakeRecord(std::move(record));
    }
}

}  // namespace

std::string TextOf(const Json& member) {
    if (member.is_null()) return {};
    if (member.is_string()) return member.get<std::string>();
    if (member.is_number_float()) return FormatNumber(member.get<double>());
    return Dump(member);
}

void ReadRecords(std::istream& stream, const std::string& file, const ReadOptions& options,
                 RecordSink* sink) {
    switch (options.form) {
        case Form::CSV:
            return ReadCsv(stream, file, options, sink);
        case Form::JSONL:
            return ReadJsonLines(stream, file, options, sink);
        case Form::GEOJSON:
            return ReadGeoJson(stream, file, sink);
        case Form::LINES:
            break;
    }
    if (!options.areTexts) return ReadDegrees(stream, file, sink);
    if (!options.columns.empty()) return ReadCsv(stream, file, options, sink);
    ReadTexts(stream, file, sink);
}

}  // namespace tessara::program
