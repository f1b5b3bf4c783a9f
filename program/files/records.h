// Records of a file: a position, and other members, which are kept.
#pragma once

#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "conversion/positions.h"
#include "files/forms.h"
#include "files/json.h"
#include "files/toolkit_names.h"

namespace tessara::program {

// The members that hold a position: degrees and perhaps a height, or the two texts.
struct PositionNames {
    std::string north;
    std::string east;
    std::string height;  // empty without one
};

struct Record {
    std::string place;   // FILE:LINE or the like, for messages
    std::string error;   // what is wrong with it; then the rest may be empty
    std::string source;  // how it stands in the file, without the end of the line
    Json feature;        // how it stands in a GeoJSON file
    Json members = Json::object();
    char separator = ',';  // of the columns of a header
    PositionNames names;
    std::optional<Position> position;  // where it isn't in members
};

// A text for a member, as lines and columns have it.
[[nodiscard]] std::string TextOf(const Json& member);

struct ReadOptions {
    Form form = Form::LINES;
    bool areTexts = false;             // north and east texts, not degrees
    std::vector<std::string> columns;  // how their members are called; empty where that is to be found out
};

class RecordSink {
  public:
    virtual ~RecordSink() = default;
    // The names of the members, for a file that tells them before its first record.
    virtual void TakeHeader(const Record& header) = 0;
    virtual void TakeRecord(Record record) = 0;
};

// Reads one record after the other. What is wrong with the file as a whole comes as a record with an error
// and without a source.
void ReadRecords(std::istream& stream, const std::string& file, const ReadOptions& options, RecordSink* sink);

}  // namespace tessara::program
