// Writes an object of JSON, member by member.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "conversion/fields.h"
#include "run/toolkit_names.h"

namespace tessara::program {

class JsonObject {
  public:
    explicit JsonObject(std::string* json) : json_(*json) { json_ += '{'; }

    // Writes the name of a member; the caller appends the value.
    std::string* Name(std::string_view name);

    void Text(std::string_view name, std::string_view text);
    void Number(std::string_view name, double number);
    void Fields(const std::vector<Field>& fields);

    void End() { json_ += '}'; }

  private:
    std::string& json_;
    bool isEmpty_ = true;
};

}  // namespace tessara::program
