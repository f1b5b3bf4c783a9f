#include "errors.h"

namespace tessara::python {
namespace py = pybind11;

void BindErrors(py::module_& module) {
    // The class is defined in Python, so that it can be subclassed and pickled.
    static py::handle type;
    module.def("set_position_error", [](py::object error) { type = error.release(); });
    module.def("status_text", &Koord_StatusText);
    py::register_exception_translator([](std::exception_ptr thrown) {
        try {
            if (thrown) std::rethrow_exception(thrown);
        } catch (const PositionError& error) {
            const py::object made = type(error.status, Koord_StatusText(error.status), error.index);
            PyErr_SetObject(type.ptr(), made.ptr());
        }
    });
}

}  // namespace tessara::python
