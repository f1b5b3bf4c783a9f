// Writes records in one of the forms.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>

#include "files/record_conversion.h"

namespace tessara::program {

class RecordWriter {
  public:
    explicit RecordWriter(Form form) : form_(form) {}

    // The columns of CSV, unless they are known already: from the first header or record on they stay.
    void AppendHeader(const Record& header, const Output& output, std::string* text);

    // Appends what is written of a record; otherwise says what is wrong.
    std::string Append(const Record& record, const Output& output, std::string* text);

    // Appends a feature as it was read.
    void AppendFeature(const Json& feature, std::string* text);

    // What ends the file.
    [[nodiscard]] std::string Finish();

  private:
    std::string AppendRow(const Json& members, std::string* text);

    Form form_;
    char separator_ = ',';                                                 // as the first file has it
    std::optional<std::unordered_map<std::string, std::size_t>> columns_;  // their places, by their names
    bool hasFeatures_ = false;
};

}  // namespace tessara::program
