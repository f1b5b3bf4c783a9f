// Reads and writes texts of positions with the reader and writer of the toolkit.
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "columns.h"
#include "conversion/names.h"
#include "errors.h"
#include "module.h"
#include "prepared.h"
#include "reference.h"
#include "tessara/ckoord.h"
#include "typed/text_writer.h"
#include "typed/typed_reader.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

// A named system, or any system that the text determines, on a default datum.
toolkit::Wanted WantedOf(const std::string& system, const std::string& datum) {
    toolkit::Wanted wanted;
    wanted.reference.datum = DatumOf(datum);
    if (system == "auto") return wanted;
    const auto reference = toolkit::ReferenceByName(system, wanted.reference.datum);
    if (!reference) throw std::invalid_argument(toolkit::WrongReference(system));
    wanted.reference = *reference;
    return wanted;
}

struct ReadTexts {
    std::vector<double> latitudes;
    std::vector<double> longitudes;
    std::vector<std::int32_t> systems;
    std::vector<std::pair<std::size_t, toolkit::Fault>> faults;
};

ReadTexts ReadAll(const toolkit::TypedReader& reader, const std::vector<std::string>& texts) {
    ReadTexts all;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const toolkit::TypedResult result = reader.Read(texts[i]);
        GeodezPayload degrees{std::nan(""), std::nan(""), 0.0};
        std::int32_t system = NO_SYSTEM;
        if (result.IsRead() && toolkit::DegreesOf(result.readings[0].record, &degrees)) {
            system = result.readings[0].reference.system;
        } else {
            all.faults.emplace_back(i, result.fault);
        }
        all.latitudes.push_back(degrees.latitude);
        all.longitudes.push_back(degrees.longitude);
        all.systems.push_back(system);
    }
    return all;
}

// Returns latitudes, longitudes and names of systems; and for each rejected text the index, the code, the
// reason and the piece in bytes.
py::tuple Parse(const std::vector<std::string>& texts, const std::string& system, const std::string& datum) {
    const toolkit::TypedReader reader(WantedOf(system, datum));
    ReadTexts all;
    {
        const py::gil_scoped_release released;
        all = ReadAll(reader, texts);
    }
    py::list systems;
    for (const std::int32_t number : all.systems)
        systems.append(number == NO_SYSTEM ? "" : toolkit::SystemName(number));
    py::list faults;
    for (const auto& [index, fault] : all.faults)
        faults.append(py::make_tuple(index, fault.code, fault.reason, fault.piece.begin, fault.piece.end));
    return py::make_tuple(py::array(py::cast(all.latitudes)), py::array(py::cast(all.longitudes)), systems,
                          faults);
}

// Returns the fields of each meaning of a text.
py::list Meanings(const std::string& text, const std::string& system, const std::string& datum) {
    const toolkit::TypedReader reader(WantedOf(system, datum));
    py::list meanings;
    for (const toolkit::Reading& reading : reader.Read(text).readings)
        meanings.append(toolkit::Describe(reading));
    return meanings;
}

struct WrittenTexts {
    std::vector<std::vector<std::string>>
        texts;  // one or two for each position; none for a position without a result
    std::optional<Failure> failure;
};

WrittenTexts WriteAll(const PreparedConversion& conversion, const toolkit::TextWriter& writer,
                      const InColumn& north, const InColumn& east, std::size_t count) {
    const FieldPair pair = *conversion.NorthAndEast();
    WrittenTexts all;
    all.texts.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const tagKOORD source = conversion.SourceAt(pair, north.Number(i), east.Number(i));
        tagKOORD target;
        KoordStatus status = conversion.Convert(source, &target);
        std::vector<std::string> texts;
        if (status == KOORD_OK) {
            texts = writer.Write(CKoord(target), CKoord(source));
            if (texts.empty()) status = KOORD_ERR_OUTSIDE;
        }
        if (status != KOORD_OK && !all.failure) all.failure = {i, status};
        all.texts.push_back(std::move(texts));
    }
    return all;
}

constexpr int METRE_DIGITS = 5;
constexpr std::size_t LONGEST_REFERENCE = 15;  // 32UPU9160334791

// Columns of military references to the metre, which the library converts in blocks.
struct References {
    explicit References(std::size_t count)
        : zones(count), bands(count), squares(2 * count), eastings(count), northings(count) {}

    [[nodiscard]] WantedColumns Columns() {
        const auto column = [](auto& values) {
            return OutColumn{reinterpret_cast<std::byte*>(values.data())};
        };
        return {{column(zones), column(bands), column(squares), column(eastings), column(northings)}, {}, {}};
    }

    // Nothing for a position without a result.
    [[nodiscard]] std::string Text(std::size_t i) const {
        if (zones[i] == 0) return {};
        const std::string letters{static_cast<char>(squares[2 * i]), static_cast<char>(squares[2 * i + 1])};
        return std::to_string(zones[i]) + static_cast<char>(bands[i]) +
               toolkit::SquareText(letters, eastings[i], northings[i], METRE_DIGITS);
    }

    std::vector<std::int16_t> zones;
    std::vector<char32_t> bands;
    std::vector<char32_t> squares;
    std::vector<std::int32_t> eastings;
    std::vector<std::int32_t> northings;
};

py::array FormatReferences(const PreparedConversion& conversion, InputArrays& inputs, const py::array& norths,
                           const py::array& easts, const std::string& errors) {
    const FieldPair pair = *conversion.NorthAndEast();
    GivenColumns given;
    given.fields.resize(2);
    given.fields[pair.north] = inputs.Add(norths);
    given.fields[pair.east] = inputs.Add(easts);
    OutputArrays outputs(inputs.Shape());
    const OutColumn texts = outputs.Add(py::dtype("U" + std::to_string(LONGEST_REFERENCE)));
    std::optional<Failure> failure;
    {
        const py::gil_scoped_release released;
        References references(inputs.Count());
        failure = conversion.Convert(given, inputs.Count(), DistantZones::Missing, references.Columns());
        for (std::size_t i = 0; i < inputs.Count(); ++i) {
            const std::string text = references.Text(i);
            std::array<char32_t, LONGEST_REFERENCE> wide{};
            std::copy_n(text.begin(), std::min(text.size(), wide.size()), wide.begin());
            std::memcpy(texts.data + i * sizeof wide, wide.data(), sizeof wide);
        }
    }
    if (failure && errors == "raise")
        throw PositionError{failure->status, IndexOf(failure->index, inputs.Shape())};
    return outputs.Arrays()[0];
}

// Returns a list of texts, or a pair of lists if positions have a north and an east text.
py::object Format(const std::vector<py::ssize_t>& shape, const py::array_t<double>& norths,
                  const py::array_t<double>& easts, const std::string& from, const std::string& to,
                  std::optional<std::int32_t> zone, bool isDisplay, std::optional<double> precision,
                  std::optional<int> digits, bool isTruncated, const std::string& errors) {
    const PreparedConversion conversion(ReferenceOf(from), ReferenceOf(to), zone);
    if (!conversion.NorthAndEast() || conversion.SourceFields().size() != 2)
        throw std::invalid_argument("the source has more fields than north and east");
    InputArrays inputs(shape);
    if (digits == METRE_DIGITS && !isTruncated)
        return FormatReferences(conversion, inputs, norths, easts, errors);
    toolkit::TextStyle style;
    style.isDisplay = isDisplay;
    style.northResolution = style.eastResolution = precision;
    if (digits) style.reference = toolkit::ReferenceDigits{*digits, isTruncated};
    const toolkit::TextWriter writer(conversion.To(), style);

    const InColumn north = inputs.Add(norths);
    const InColumn east = inputs.Add(easts);
    WrittenTexts all;
    {
        const py::gil_scoped_release released;
        all = WriteAll(conversion, writer, north, east, inputs.Count());
    }
    if (all.failure && errors == "raise")
        throw PositionError{all.failure->status, IndexOf(all.failure->index, shape)};
    const auto column = [&all](std::size_t k) {
        py::list made(all.texts.size());
        for (std::size_t i = 0; i < all.texts.size(); ++i)
            made[i] = k < all.texts[i].size() ? py::str(all.texts[i][k]) : py::str();
        return made;
    };
    if (writer.HasOneText()) return column(0);
    return py::make_tuple(column(0), column(1));
}

}  // namespace

void BindTexts(py::module_& module) {
    module.def("parse", &Parse);
    module.def("meanings", &Meanings);
    module.def("format", &Format);
}

}  // namespace tessara::python
