// The class Conversion: names in, columns in and out, statuses as exceptions.
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cmath>

#include "columns.h"
#include "errors.h"
#include "module.h"
#include "prepared.h"
#include "record_fields.h"
#include "reference.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

py::tuple NamesOf(std::span<const OutputField> fields) {
    py::list names;
    for (const OutputField& field : fields)
        names.append(field.name);
    return names;
}

// The kind of the values of each field ('U' text, 'i' whole numbers, 'f' numbers) and the number of letters.
py::tuple TypesOf(std::span<const OutputField> fields) {
    py::list types;
    for (const OutputField& field : fields)
        types.append(py::str(TypeOf(field)));
    return types;
}

class Conversion {
  public:
    Conversion(const std::string& from, const std::string& to, std::optional<std::int32_t> zone)
        : prepared_(ReferenceOf(from), ReferenceOf(to), zone), pair_(prepared_.NorthAndEast()) {}

    [[nodiscard]] const PreparedConversion& Prepared() const { return prepared_; }

    [[nodiscard]] py::object Pair() const {
        if (!pair_) return py::none();
        return py::make_tuple(pair_->north, pair_->east);
    }
    // Whether a position of the source consists of the pair only.
    [[nodiscard]] bool CanBePoint() const { return pair_ && prepared_.SourceFields().size() == 2; }

    // Converts one position at height 0.
    [[nodiscard]] py::tuple ConvertPoint(double north, double east) const {
        if (!CanBePoint()) throw std::invalid_argument("the source has more fields than north and east");
        const tagKOORD source = prepared_.SourceAt(*pair_, north, east);
        tagKOORD target;
        const KoordStatus status = prepared_.Convert(source, &target);
        if (status != KOORD_OK) throw PositionError{status};
        return TupleOf(target);
    }

    // Converts arrays of the given shape, one or none for each field. Returns a list of new arrays: the
    // target's fields, the height if there is one, and the statuses if they are wanted.
    [[nodiscard]] py::list ConvertArrays(const std::vector<py::ssize_t>& shape,
                                         const std::vector<std::optional<py::array>>& fields,
                                         const std::optional<py::array>& height,
                                         const std::string& errors) const {
        if (fields.size() != prepared_.SourceFields().size())
            throw std::invalid_argument("the number of columns must match the number of source fields");
        InputArrays inputs(shape);
        GivenColumns source;
        for (std::size_t k = 0; k < fields.size(); ++k) {
            if (fields[k]) CheckType(*fields[k], prepared_.SourceFields()[k]);
            source.fields.push_back(fields[k] ? inputs.Add(*fields[k]) : InColumn{});
        }
        if (height) source.height = inputs.Add(CheckedNumbers(*height));

        OutputArrays outputs(shape);
        WantedColumns target;
        for (const OutputField& field : prepared_.TargetFields())
            target.fields.push_back(outputs.Add(TypeOf(field)));
        const bool givesHeight = prepared_.GivesHeight() && (height || prepared_.KnowsHeight());
        if (givesHeight) target.height = outputs.Add(py::dtype::of<double>());
        if (errors == "status") target.status = outputs.Add(py::dtype::of<std::int32_t>());

        const DistantZones distant = errors == "status" ? DistantZones::Kept : DistantZones::Missing;
        std::optional<Failure> failure;
        {
            const py::gil_scoped_release released;
            failure = prepared_.Convert(source, inputs.Count(), distant, target);
        }
        if (failure && errors == "raise")
            throw PositionError{failure->status, IndexOf(failure->index, shape)};
        return outputs.Arrays();
    }

  private:
    [[nodiscard]] py::tuple TupleOf(const tagKOORD& target) const {
        const auto fields = prepared_.TargetFields();
        py::tuple values(fields.size());
        for (std::size_t k = 0; k < fields.size(); ++k)
            values[k] = ValueOf(fields[k], target);
        return values;
    }

    static void CheckType(const py::array& array, const OutputField& field) {
        const bool isText = KindOf(field) == ColumnKind::Letters;
        const py::dtype wanted = isText ? TypeOf(field) : py::dtype::of<double>();
        if (!array.dtype().equal(wanted))
            throw std::invalid_argument(std::string("the array of '") + field.name + "' has the wrong type");
    }

    static const py::array& CheckedNumbers(const py::array& array) {
        if (!array.dtype().equal(py::dtype::of<double>()))
            throw std::invalid_argument("the array of heights has the wrong type");
        return array;
    }

    PreparedConversion prepared_;
    std::optional<FieldPair> pair_;
};

}  // namespace

void BindConversion(py::module_& module) {
    py::class_<Conversion>(module, "Conversion")
        .def(py::init<const std::string&, const std::string&, std::optional<std::int32_t>>(),
             py::arg("from_"), py::arg("to"), py::arg("zone"))
        .def_property_readonly("from_", [](const Conversion& self) { return self.Prepared().From().Name(); })
        .def_property_readonly("to", [](const Conversion& self) { return self.Prepared().To().Name(); })
        .def_property_readonly("source_fields",
                               [](const Conversion& self) { return NamesOf(self.Prepared().SourceFields()); })
        .def_property_readonly("source_types",
                               [](const Conversion& self) { return TypesOf(self.Prepared().SourceFields()); })
        .def_property_readonly("target_fields",
                               [](const Conversion& self) { return NamesOf(self.Prepared().TargetFields()); })
        .def_property_readonly("knows_height",
                               [](const Conversion& self) { return self.Prepared().KnowsHeight(); })
        .def_property_readonly("gives_height",
                               [](const Conversion& self) { return self.Prepared().GivesHeight(); })
        .def_property_readonly("pair", &Conversion::Pair)
        .def_property_readonly("can_be_point", &Conversion::CanBePoint)
        .def("point", &Conversion::ConvertPoint, py::arg("north"), py::arg("east"))
        .def("arrays", &Conversion::ConvertArrays, py::arg("shape"), py::arg("fields"), py::arg("height"),
             py::arg("errors"));
}

}  // namespace tessara::python
