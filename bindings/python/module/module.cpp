// The extension module tessara._tessara, which the package wraps.
#include "module.h"

#include "errors.h"

PYBIND11_MODULE(_tessara, module) {
    module.doc() = "The extension module of the package tessara. Import tessara instead.";
    module.attr("__version__") = TESSARA_VERSION;
    tessara::python::BindErrors(module);
    tessara::python::BindTables(module);
    tessara::python::BindConversion(module);
    tessara::python::BindGeodesics(module);
    tessara::python::BindZones(module);
    tessara::python::BindGridFactors(module);
    tessara::python::BindMaps(module);
    tessara::python::BindAreas(module);
    tessara::python::BindTexts(module);
    tessara::python::BindCensus(module);
}
