// From the positions of a record to what they are in each target.
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
    std::int32_t datum = DATUM_WGS84;  // of degrees
    std::optional<Wanted> from;        // of texts
    std::vector<Reference> to;         // may be none for GeoJSON: the point is the position
    Form output = Form::LINES;
    bool isReport = false;           // an object of JSON about each line
    std::optional<TextStyle> texts;  // as which the results are written; otherwise they are fields
    bool withConvergence = false;
    bool withScale = false;
    bool isVerbose = false;  // says what each text was read as
    OnError onError = OnError::SKIP;
};

// How many texts a position has in a target: a north and an east text, or one for both.
[[nodiscard]] std::size_t CountTexts(const RecordConversion& conversion, const Reference& target);

// What is written of a target, as far as it doesn't depend on the position: its fields, or its texts, and
// convergence and scale where it is a grid.
[[nodiscard]] std::vector<Field> ValuesOf(const RecordConversion& conversion, const Reference& target);

struct Results {
    std::string error;                       // or why there are none
    const char* code = "";                   // of the error, for programs; not every one has it
    std::optional<Reading> reading;          // what the texts were read as
    std::vector<Position> positions;         // as they were read, if they are degrees
    std::vector<std::vector<Field>> values;  // of each position those of each target
    std::vector<CKoord> koords;              // the same as records
    std::vector<Position> points;            // on WGS84, for GeoJSON

    void Clear();
};

// Does the conversion for one thread.
class RecordConverter {
  public:
    explicit RecordConverter(const RecordConversion& conversion);

    // A line of texts without names may have its position in the first column, or be one text as a whole: the
    // members of the record are divided like that then.
    void Convert(Record& record, Results* results);

    // The same for texts that are read already.
    void ConvertTyped(const TypedResult& read, Results* results);

  private:
    struct Target {
        Conversion conversion;
        std::optional<TextWriter> writer;
        std::optional<Conversion> degrees;  // on its datum, where convergence or scale is wanted
    };

    [[nodiscard]] std::string ReadDegrees(const Record& record, std::vector<Position>* positions);
    [[nodiscard]] TypedResult ReadTexts(Record& record) const;
    // False if there are no results of a position.
    bool ConvertToAll(const CKoord& source, const std::optional<double>& height, Results* results);
    [[nodiscard]] KoordStatus ConvertTo(const Target& target, const CKoord& source,
                                        const std::optional<double>& height, Results* results) const;

    const RecordConversion& conversion_;
    std::vector<Target> targets_;
    std::optional<Conversion> point_;  // of GeoJSON
    std::optional<TypedReader> reader_;
};

}  // namespace tessara::program
