// Every operation of every interface of the library, prepared to succeed on the objects of a scene.
#pragma once

#include <span>

#include "faults/fault_scene.h"

namespace tessara::testing {

// What an operation does where memory runs out.
enum class OutOfMemory {
    NEVER,      // it allocates nothing
    TOLD,       // its result is a failure
    MAY_THROW,  // or it lets std::bad_alloc pass: lists, vectors and texts grow
};

struct FaultyOperation {
    const char* name;  // "Interface::Operation", and after a blank which of its paths
    OutOfMemory outOfMemory;
    bool (*call)(FaultScene& scene);  // whether it succeeds
    // What it can do without, if there is such a thing: its result is then as with memory.
    const char* spares = nullptr;
};

using OperationTable = std::span<const FaultyOperation>;

[[nodiscard]] OperationTable FrameOperations();
[[nodiscard]] OperationTable ObjectOperations();
[[nodiscard]] OperationTable TextOperations();
[[nodiscard]] OperationTable MapOperations();
[[nodiscard]] OperationTable GeometryOperations();
[[nodiscard]] OperationTable AreaOperations();

}  // namespace tessara::testing
