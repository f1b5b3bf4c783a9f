// From the positions of a record to what they are in each target.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "conversion/fields.h"
#include "conversion/references.h"
#include "conversion/typed_position.h"
#include "files/record.h"
#include "files/toolkit_names.h"

namespace tessara::program {

enum class OnError { SKIP, KEEP, STOP };

// How positions are written as a north and an east text each.
struct TextStyle {
    bool display = false;                   // the forms for a screen
    std::optional<double> northResolution;  // in units of the target
    std::optional<double> eastResolution;
};

struct RecordConversion {
    std::int32_t datum = DATUM_WGS84;  // of degrees
    std::optional<Reference> from;     // of texts
    std::vector<Reference> to;         // may be none for GeoJSON: the point is the position
    Form output = Form::LINES;
    bool isReport = false;           // an object of JSON about each line
    std::optional<TextStyle> texts;  // as which the results are written; otherwise they are fields
    bool withConvergence = false;
    bool withScale = false;
    OnError onError = OnError::SKIP;
};

// What is written of a target, as far as it doesn't depend on the position: its fields, or the two texts, and
// convergence and scale where it is a grid.
[[nodiscard]] std::vector<Field> ValuesOf(const RecordConversion& conversion, const Reference& target);

struct Results {
    std::string error;                       // or why there are none
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

    void Convert(const Record& record, Results* results);

  private:
    struct Target {
        Reference reference;
        IRef<ICoordinateReference> libraryReference;
        IRef<ICoordinateReference> degrees;  // on its datum, where convergence or scale is wanted
        IRef<ICoordinateString> string;
    };

    [[nodiscard]] std::string ReadDegrees(const Record& record, std::vector<Position>* positions);
    [[nodiscard]] std::string ConvertTexts(const Record& record, Results* results);
    // The position that `set` gives the coordinate.
    template <class Set>
    [[nodiscard]] std::string ConvertToAll(Set set, const std::optional<double>& height, Results* results);
    [[nodiscard]] std::optional<GeodezPayload> Degrees(const Target& target);
    [[nodiscard]] bool ConvertTo(const Target& target, const std::optional<GeodezPayload>& degrees,
                                 const std::optional<double>& height, Results* results);
    [[nodiscard]] bool FillTexts(const Target& target, std::vector<Field>* values);
    [[nodiscard]] std::string TextOf(const Target& target, bool isNorth);

    const RecordConversion& conversion_;
    std::vector<Target> targets_;
    std::optional<TypedPosition> typed_;
    IRef<ICoord> coord_;
    IRef<ICoordInternal> internal_;
    IRef<ITessaraString> text_;
};

}  // namespace tessara::program
