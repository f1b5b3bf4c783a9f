// Converts the positions of a record to all targets.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "conversion/conversion.h"
#include "conversion/fields.h"
#include "conversion/references.h"
#include "conversion/results.h"
#include "files/record.h"
#include "run/toolkit_names.h"
#include "typed/text_writer.h"
#include "typed/typed_reader.h"

namespace tessara::program {

enum class OnError { SKIP, KEEP, STOP };

struct RecordConversion {
    std::int32_t datum = DATUM_WGS84;  // datum of positions in degrees
    std::optional<Wanted> from;        // of texts
    std::vector<Reference> to;         // may be empty for GeoJSON, whose geometry has the position
    Form output = Form::LINES;
    bool isReport = false;           // --json: one JSON object per line
    std::optional<TextStyle> texts;  // writes results as texts; otherwise as fields
    bool withConvergence = false;
    bool withScale = false;
    bool isVerbose = false;  // reports how each text was read
    OnError onError = OnError::SKIP;
};

// The number of texts of a position in a target: two (north and east), or one for both.
[[nodiscard]] std::size_t CountTexts(const RecordConversion& conversion, const Reference& target);

// The names of the values of a target: its fields or texts, and convergence and scale for a grid.
[[nodiscard]] std::vector<Field> ValuesOf(const RecordConversion& conversion, const Reference& target);

struct Results {
    std::string error;                       // the reason for missing results
    const char* code = "";                   // of the error, for programs; may be empty
    std::optional<Reading> reading;          // the meaning of the texts
    std::vector<Position> positions;         // from the input, if it has degrees
    std::vector<std::vector<Field>> values;  // for each position, the values of each target
    std::vector<CKoord> koords;              // the same positions as records
    std::vector<Position> points;            // on WGS84, for GeoJSON

    void Clear();
};

// Converts records; not for concurrent use.
class RecordConverter {
  public:
    explicit RecordConverter(const RecordConversion& conversion);

    // A line of texts without a header can have its position in the first column or in the whole line;
    // Convert then splits the members of the record accordingly.
    void Convert(Record& record, Results* results);

    // Converts texts that have been read.
    void ConvertTyped(const TypedResult& read, Results* results);

  private:
    struct Target {
        Conversion conversion;
        std::optional<TextWriter> writer;
        std::optional<Conversion> degrees;  // to degrees on the target's datum, for convergence and scale
    };

    [[nodiscard]] std::string ReadDegrees(const Record& record, std::vector<Position>* positions);
    [[nodiscard]] TypedResult ReadTexts(Record& record) const;
    // Returns false if a position has no results.
    bool ConvertToAll(const CKoord& source, const std::optional<double>& height, Results* results);
    [[nodiscard]] KoordStatus ConvertTo(const Target& target, const CKoord& source,
                                        const std::optional<double>& height, Results* results) const;

    const RecordConversion& conversion_;
    std::vector<Target> targets_;
    std::optional<Conversion> point_;  // of GeoJSON
    std::optional<TypedReader> reader_;
};

}  // namespace tessara::program
