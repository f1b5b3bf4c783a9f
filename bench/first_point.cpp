// Measures how long a host waits for its first point: a new process loads the shared library and converts a
// position in degrees to a UTMREF text. Microseconds, median of several processes.

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tessara/coord.h"
#include "tessara/coord_geographic.h"
#include "tessara/coordinate_reference.h"
#include "tessara/coordinate_string.h"
#include "tessara/host/text.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::bench {
namespace {

using Clock = std::chrono::steady_clock;

struct Times {
    double load, firstPoint;  // microseconds, both from the start
};

double MicrosecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

template <class Function>
Function Find(void* library, const char* name) {
    return reinterpret_cast<Function>(dlsym(library, name));
}

bool ConvertFirstPoint(void* library) {
    const IRef<ICoordGeographic> munich(
        Find<decltype(&CreateClassCoordGeographic)>(library, "CreateClassCoordGeographic")());
    const IRef<ICoord> coord(Find<decltype(&CreateClassCoord)>(library, "CreateClassCoord")());
    const IRef<ICoordinateReference> reference(
        Find<decltype(&CreateClassCoordinateReference)>(library, "CreateClassCoordinateReference")());
    const IRef<ICoordinateString> string(
        Find<decltype(&CreateClassCoordinateString)>(library, "CreateClassCoordinateString")());
    const IRef<ITessaraString> text(NewObject<host::Text>());
    munich->Set(11.5755, 48.1375, 520.0);
    return coord->SetGeographic(munich.Get()) && reference->SetDatum(DATUM_WGS84) &&
           reference->SetSystem(KOORD_UTMREF) && coord->SetReference(reference.Get()) &&
           string->SetCoord(coord.Get()) && string->SetNorthPrecision(1.0) && string->SetEastPrecision(1.0) &&
           string->GetNorthDisplayText(text.Get()) && std::strcmp(text->GetText(), "32UPU9160334791") == 0;
}

bool Measure(Times* times) {
    const Clock::time_point start = Clock::now();
    void* const library = dlopen(TESSARA_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return false;
    times->load = MicrosecondsSince(start);
    const bool isConverted = ConvertFirstPoint(library);
    times->firstPoint = MicrosecondsSince(start);
    return isConverted;
}

// Runs in a process of its own, in which the library isn't loaded yet.
bool MeasureFresh(Times* times) {
    int ends[2];
    if (pipe(ends) != 0) return false;
    const pid_t child = fork();
    if (child == 0) {
        Times measured{};
        const bool isDone =
            Measure(&measured) && write(ends[1], &measured, sizeof measured) == sizeof measured;
        _exit(isDone ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    int status = 0;
    const bool hasEnded = child > 0 && waitpid(child, &status, 0) == child && status == 0;
    const bool isRead = hasEnded && read(ends[0], times, sizeof *times) == sizeof *times;
    close(ends[0]);
    close(ends[1]);
    return isRead;
}

int Main() {
    std::array<double, 51> loads, firstPoints;
    for (std::size_t i = 0; i < loads.size(); ++i) {
        Times times{};
        if (!MeasureFresh(&times)) {
            std::fputs("first_point: the first point can't be converted\n", stderr);
            return EXIT_FAILURE;
        }
        loads[i] = times.load;
        firstPoints[i] = times.firstPoint;
    }
    std::sort(loads.begin(), loads.end());
    std::sort(firstPoints.begin(), firstPoints.end());
    std::printf("library loaded after %.0f us, first point after %.0f us\n", loads[loads.size() / 2],
                firstPoints[firstPoints.size() / 2]);
    return EXIT_SUCCESS;
}

}  // namespace
}  // namespace tessara::bench

int main() {
    return tessara::bench::Main();
}
