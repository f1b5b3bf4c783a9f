#include "files/forms.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "lines/input_files.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

struct Ending {
    std::string_view text;
    Form form;
};

constexpr Ending ENDINGS[] = {
    {".csv", Form::CSV},      {".tsv", Form::TSV},         {".jsonl", Form::JSONL},
    {".ndjson", Form::JSONL}, {".geojson", Form::GEOJSON}, {".json", Form::GEOJSON},
};

}  // namespace

Form FormByName(const std::string& name) {
    const auto* const found = std::find(std::begin(FORM_NAMES), std::end(FORM_NAMES), name);
    return found != std::end(FORM_NAMES) ? static_cast<Form>(found - std::begin(FORM_NAMES)) : Form::LINES;
}

Form FormOfFile(const std::string& file) {
    for (const Ending& ending : ENDINGS) {
        if (HasEnding(file, ending.text)) return ending.form;
    }
    return Form::LINES;
}

}  // namespace tessara::program
