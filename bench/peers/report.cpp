#include "bench/peers/report.h"

#include <proj.h>

#include <GeographicLib/Config.h>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>

namespace tessara::bench {
namespace {

std::string Figure(double nanoseconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", nanoseconds);
    return nanoseconds == 0.0 ? "-" : text;
}

nlohmann::json ToJson(const Row& entry) {
    const Figures& f = entry.figures;
    nlohmann::json row{{"task", entry.name}, {"ours", f.ours}, {"ratio", f.Ratio()}};
    if (f.proj != 0.0) row["proj"] = f.proj;
    if (f.geographicLib != 0.0) row["geographicLib"] = f.geographicLib;
    return row;
}

}  // namespace

void PrintHeading() {
    std::printf("| %-22s | %8s | %8s | %13s | %5s |\n", "ns a position", "ours", "PROJ", "GeographicLib",
                "ratio");
    std::printf("|:-----------------------|---------:|---------:|--------------:|------:|\n");
}

void PrintRow(const std::string& name, const Figures& f) {
    std::printf("| %-22s | %8s | %8s | %13s | %5.2f |\n", name.c_str(), Figure(f.ours).c_str(),
                Figure(f.proj).c_str(), Figure(f.geographicLib).c_str(), f.Ratio());
    std::fflush(stdout);
}

bool WriteJson(const std::vector<Row>& rows, const std::string& path) {
    nlohmann::json tasks = nlohmann::json::array();
    for (const Row& row : rows)
        tasks.push_back(ToJson(row));
    const nlohmann::json report{{"unit", "nanoseconds a position"},
                                {"positions", POSITIONS},
                                {"proj", proj_info().version},
                                {"geographicLib", GEOGRAPHICLIB_VERSION_STRING},
                                {"tasks", tasks}};
    std::ofstream file(path);
    file << report.dump(2) << '\n';
    return file.good();
}

}  // namespace tessara::bench
