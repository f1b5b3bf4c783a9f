// Writes the tables of the manual from the library's own: tables SOURCE_DIR OUTPUT_DIR. Each table is a page
// in Markdown. The meanings of enumerators and statuses are read from the comments beside them in the
// headers.
#include <cmath>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "tessara/kernel/datum.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/map.h"
#include "tessara/kernel/names.h"

using namespace tessara;

namespace {

struct Definition {
    std::string name, number, comment;
};

// The lines of a header that match a form. The first group is the name, the second the number, the third the
// comment.
std::vector<Definition> DefinitionsIn(const std::string& header, const std::regex& form) {
    std::ifstream file(header);
    std::vector<Definition> definitions;
    std::smatch match;
    for (std::string line; std::getline(file, line);) {
        if (std::regex_match(line, match, form)) definitions.push_back({match[1], match[2], match[3]});
    }
    if (definitions.empty()) throw std::runtime_error("nothing found in " + header);
    return definitions;
}

std::string NameOr(const char* name, const char* other) {
    return name != nullptr && *name != '\0' ? name : other;
}

std::string Range(double low, double high, const char* unit) {
    std::ostringstream text;
    text << std::setprecision(12) << low << " to " << high << unit;
    return text.str();
}

// The limits of a system, in their own unit.
std::string LimitsOf(std::int32_t type) {
    static const std::map<std::int32_t, Limits> degrees{{KOORD_UTM, UTM_LIMITS},
                                                        {KOORD_UTMREF, UTM_LIMITS},
                                                        {KOORD_GEODEZ, GEOGRAPHIC_LIMITS},
                                                        {KOORD_GEODEZMIN, GEOGRAPHIC_LIMITS},
                                                        {KOORD_GK, GK_LIMITS},
                                                        {KOORD_GEOGRAD, GEOGRAPHIC_LIMITS},
                                                        {KOORD_GK6, GK6_LIMITS},
                                                        {KOORD_BMN, AUSTRIAN_LIMITS},
                                                        {KOORD_OEM, AUSTRIAN_LIMITS},
                                                        {KOORD_GKAT, AUSTRIAN_LIMITS}};
    static const std::map<std::int32_t, Limits> metres{
        {KOORD_CH, CH_LIMITS},   {KOORD_BNG, BNG_LIMITS},     {KOORD_RD, RD_LIMITS},
        {KOORD_ING, ING_LIMITS}, {KOORD_LUREF, LUREF_LIMITS}, {KOORD_PO_MILITARY, PO_MILITARY_LIMITS}};
    if (const auto found = degrees.find(type); found != degrees.end())
        return "longitude " + Range(found->second.west, found->second.east, "°") + ", latitude " +
               Range(found->second.south, found->second.north, "°");
    if (const auto found = metres.find(type); found != metres.end())
        return "easting " + Range(found->second.west, found->second.east, " m") + ", northing " +
               Range(found->second.south, found->second.north, " m");
    if (type == KOORD_UPS) return "latitude 80 to 90° and -90 to -80°";
    if (type == KOORD_GEOREF) return "longitude from -180° to below 180°, latitude from -90° to below 90°";
    return "";
}

void WriteSystems(std::ostream& out, const std::string& include) {
    out << "# The coordinate systems\n\n"
           "The number is the `type` of a record; the name is the one that `ICoordinateSystem::GetName` and "
           "the "
           "program\n"
           "use. Limits are inclusive; koord.h declares the payload of each type. `KoordConvert` refuses "
           "targets\n"
           "beyond the limits, and GEODEZ targets are never refused. Systems without an entry have no limits "
           "of\n"
           "their own.\n\n"
           "| Number | Enumerator | Name | What it is | Limits |\n|---:|---|---|---|---|\n";
    const std::regex form(R"( +(KOORD_\w+) = (\d+), +// (.*))");
    for (const Definition& row : DefinitionsIn(include + "/kernel/koord.h", form)) {
        const std::int32_t type = std::stoi(row.number);
        out << "| " << row.number << " | `" << row.name << "` | " << NameOr(CoordinateType_Name(type), "")
            << " | " << row.comment << " | " << LimitsOf(type) << " |\n";
    }
}

void WriteStatuses(std::ostream& out, const std::string& include) {
    out << "# The kernel's statuses\n\n"
           "The plain functions return these statuses. Operations of objects return true or false "
           "instead.\n\n"
           "| Value | Name | Meaning |\n|---:|---|---|\n";
    const std::regex form(R"(inline constexpr KoordStatus (\w+) = (-?\d+);(?: +// (.*))?)");
    for (const Definition& row : DefinitionsIn(include + "/kernel/koord_status.h", form))
        out << "| " << row.number << " | `" << row.name << "` | " << row.comment << " |\n";
}

void WriteMapTypes(std::ostream& out, const std::string& include) {
    out << "# The map types\n\n"
           "The number is the `type` of a MapParam and the result of `IProjection::GetProjectionType`.\n\n"
           "| Number | Enumerator | Name | What it is | Parameters |\n|---:|---|---|---|---|\n";
    const std::regex form(R"( +(MAP_\w+) = (\d+),(?: +// (.*))?)");
    const std::regex parameters(R"((.*?)  +(Map\w+))");
    for (const Definition& row : DefinitionsIn(include + "/kernel/map.h", form)) {
        std::smatch match;
        const bool hasParameters = std::regex_match(row.comment, match, parameters);
        out << "| " << row.number << " | `" << row.name << "` | "
            << NameOr(Projection_Name(std::stoi(row.number)), "") << " | "
            << (hasParameters ? match[1].str() : row.comment) << " | "
            << (hasParameters ? match[2].str() : "") << " |\n";
    }
}

void WriteDatums(std::ostream& out) {
    out << "# The datums\n\n"
           "A datum is an ellipsoid, with semi-major axis a and flattening f, and a translation (dx, dy, dz) "
           "to\n"
           "WGS84. Lengths are metres.\n\n"
           "| Number | Name | Ellipsoid | a | 1/f | dx | dy | dz "
           "|\n|---:|---|---|---:|---:|---:|---:|---:|\n";
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const DatumRow& row = *Datum_Row(datum);
        out << "| " << datum << " | " << row.name << " | "
            << NameOr(Ellipsoid_Name(static_cast<std::int32_t>(row.ellipsoid)), "-") << " | "
            << std::setprecision(12) << row.a << " | ";
        if (row.f != 0.0) out << 1.0 / row.f;
        out << " | " << row.dx << " | " << row.dy << " | " << row.dz << " |\n";
    }
}

std::ofstream Page(const std::string& directory, const char* name) {
    std::ofstream page(directory + "/" + name);
    page.exceptions(std::ios::failbit | std::ios::badbit);
    return page;
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 3) return 2;
    const std::string include = std::string(argv[1]) + "/include/tessara";
    std::ofstream systems = Page(argv[2], "systems.md"), statuses = Page(argv[2], "statuses.md");
    std::ofstream maps = Page(argv[2], "map_types.md"), datums = Page(argv[2], "datums.md");
    WriteSystems(systems, include);
    WriteStatuses(statuses, include);
    WriteMapTypes(maps, include);
    WriteDatums(datums);
} catch (const std::exception& error) {
    std::cerr << "tables: " << error.what() << '\n';
    return 1;
}
