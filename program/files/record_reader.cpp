#include "files/record_reader.h"

#include <algorithm>
#include <string>

#include "files/json_scan.h"
#include "lines/columns.h"
#include "lines/line_reader.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

constexpr std::string_view BLANKS = " \t\r\n";

std::string Count(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Reads the records of one format into a single Record, which it reuses.
class Reader {
  public:
    Reader(const Layout& layout, std::size_t number, const TakeRecord& take, bool hasPositions = true)
        : layout_(layout), number_(number), take_(take), hasPositions_(hasPositions) {}

    void Read(std::string_view text) {
        if (layout_.form == Form::GEOJSON) return ReadFeatures(text);
        ReadLines(text);
    }

  private:
    void ReadLines(std::string_view text) {
        while (!text.empty()) {
            const std::string_view whole = FirstRecord(text, layout_.form, layout_.separator);
            text.remove_prefix(whole.size());
            record_.Clear();
            record_.number = number_;
            record_.source = WithoutLineEnd(whole);
            number_ += static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '\n'));
            record_.isBlank = IsSkipped(record_.source, layout_.form);
            if (!record_.isBlank) ReadOne();
            take_(record_);
        }
    }

    void ReadFeatures(std::string_view text) {
        JsonScan scan(text);
        while (scan.Take(',') || scan.Peek() != '\0') {
            record_.Clear();
            record_.number = number_++;
            scan.Peek();
            const std::size_t begin = scan.At();
            ReadFeature(scan);
            record_.source = text.substr(begin, scan.At() - begin);
            if (isGeometry_ && hasPositions_) ReadGeometryAlone();
            if (record_.error.empty()) record_.error = layout_.wrong;
            take_(record_);
        }
    }

    void ReadOne() {
        if (IsTable(layout_.form)) return ReadRow();
        if (layout_.form == Form::JSONL) return ReadObject();
        return layout_.areTexts ? ReadRow() : ReadDegrees();
    }

    void ReadDegrees() {
        const Line line = ReadLineStart(record_.source);
        record_.error = line.error;
        if (line.position) record_.positions.push_back(*line.position);
        record_.isBlank = !line.position && line.error.empty();
        if (!line.rest.empty()) record_.members.push_back({"rest", {Notation::Plain, line.rest}});
    }

    void ReadRow() {
        SplitRaw(WithoutCarriageReturn(record_.source), layout_.separator, &columns_);
        record_.at = layout_.at;
        record_.separator = layout_.separator;
        record_.mayBeOneText = layout_.form == Form::LINES && !layout_.hasHeader && layout_.columns.empty();
        if (record_.mayBeOneText && columns_.size() == 1) record_.at = {0, 0, NO_MEMBER};
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (i >= layout_.names.size()) record_.texts.push_back(std::to_string(i + 1));
            record_.members.push_back({i < layout_.names.size() ? layout_.names[i] : record_.texts.back(),
                                       {Notation::Column, columns_[i]}});
        }
        const bool isHeaderBinding = layout_.hasHeader && IsTable(layout_.form);
        if (isHeaderBinding && columns_.size() != layout_.names.size()) {
            record_.error = EndsInQuotes(record_.source, layout_.separator)
                                ? "unclosed quote"
                                : "expected " + Count(layout_.names.size(), "column") +
                                      ", as in the header, found " + std::to_string(columns_.size());
        } else if (EndsInQuotes(record_.source, layout_.separator) && IsTable(layout_.form)) {
            record_.error = "unclosed quote";
        } else if (IsPositionBeyond()) {
            record_.error = "missing column of the position; found " + Count(columns_.size(), "column");
        }
    }

    [[nodiscard]] bool IsPositionBeyond() const {
        const PositionMembers& at = record_.at;
        const std::size_t count = columns_.size();
        const bool hasHeight = at.height != NO_MEMBER;
        return at.north >= count || at.east >= count || (hasHeight && at.height >= count);
    }

    void ReadObject() {
        try {
            JsonScan scan(record_.source);
            const bool isObject = scan.Peek() == '{';
            if (isObject) {
                ReadMembers(scan);
            } else {
                scan.Value();
            }
            scan.ExpectEnd();
            if (!isObject) record_.error = "expected a JSON object";
        } catch (const JsonFault& fault) {
            record_.error = WordsOf(fault);
        }
        if (!record_.error.empty()) return;
        names_.clear();
        for (const Member& member : record_.members)
            names_.push_back(member.name);
        record_.at = FindPosition(names_, layout_);
        record_.error = WrongNames(record_.at, layout_);
    }

    void ReadMembers(JsonScan& scan) {
        scan.Object([&](std::string_view name) {
            record_.members.push_back({NameOf(name), {Notation::Json, scan.Value()}});
        });
    }

    std::string_view NameOf(std::string_view string) {
        if (IsPlain(string)) return string.substr(1, string.size() - 2);
        return record_.texts.emplace_back(Unescaped(string));
    }

    void ReadFeature(JsonScan& scan) {
        isGeometry_ = false;
        record_.error = "expected a GeoJSON feature";
        if (scan.Peek() != '{') {
            scan.Value();
            return;
        }
        std::string type;
        std::string wrongGeometry = "missing geometry";
        bool areProperties = true;
        scan.Object([&](std::string_view name) {
            Value value{Notation::Json, {}};
            if (hasPositions_ && name == R"("geometry")") {
                record_.positions.clear();
                wrongGeometry = ReadGeometry(scan, &record_.geometry, &record_.positions);
            } else if (name == R"("properties")" && scan.Peek() == '{') {
                ReadMembers(scan);
            } else {
                value.source = scan.Value();
            }
            if (name == R"("type")") type = Unescaped(value.source);
            if (name == R"("properties")") areProperties = value.source.empty() || value.source == "null";
            record_.frame.push_back({NameOf(name), value});
        });
        isGeometry_ = IsGeometryType(type);
        if (type != "Feature") return;
        record_.error = areProperties ? wrongGeometry : "invalid 'properties': expected an object";
    }

    // A geometry without a feature has no properties.
    void ReadGeometryAlone() {
        record_.frame.clear();
        record_.positions.clear();
        JsonScan scan(record_.source);
        record_.error = ReadGeometry(scan, &record_.geometry, &record_.positions);
    }

    const Layout& layout_;
    std::size_t number_;
    const TakeRecord& take_;
    bool hasPositions_;
    Record record_;
    bool isGeometry_ = false;  // rather than a feature
    std::vector<std::string_view> columns_;
    std::vector<std::string_view> names_;
};

}  // namespace

bool IsSkipped(std::string_view line, Form form) {
    return line.find_first_not_of(BLANKS) == std::string_view::npos ||
           (form == Form::LINES && line.starts_with('#'));
}

bool EndsInQuotes(std::string_view text, char separator) {
    if (text.find('"') == std::string_view::npos) return false;
    OpenQuotes quotes;
    quotes.Read(text, separator);
    return quotes.AreOpen();
}

std::string_view WithoutLineEnd(std::string_view line) {
    if (line.ends_with('\n')) line.remove_suffix(1);
    return line;
}

std::string_view FirstRecord(std::string_view text, Form form, char separator) {
    const auto endOfLine = [text](std::size_t from) {
        const std::size_t end = text.find('\n', from);
        return end == std::string_view::npos ? text.size() : end + 1;
    };
    std::size_t end = endOfLine(0);
    if (!IsTable(form)) return text.substr(0, end);
    if (text.substr(0, end).find('"') == std::string_view::npos) return text.substr(0, end);
    OpenQuotes quotes;
    for (std::size_t begin = 0;; begin = end, end = endOfLine(begin)) {
        quotes.Read(WithoutLineEnd(text.substr(begin, end - begin)), separator);
        const bool isLast = end == text.size() && !text.ends_with('\n');
        if (!quotes.AreOpen() || isLast || end == text.size()) return text.substr(0, end);
    }
}

void ReadRecords(const Layout& layout, std::size_t number, std::string_view text, const TakeRecord& take) {
    Reader(layout, number, take).Read(text);
}

void ReadMembers(const Layout& layout, std::string_view text, const TakeRecord& take) {
    Reader(layout, 1, take, false).Read(text);
}

}  // namespace tessara::program
