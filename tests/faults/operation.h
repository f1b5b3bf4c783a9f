// Every operation of every interface of the library, prepared to succeed on the objects of a scene.
#pragma once

#include <span>

#include "faults/fault_scene.h"

namespace tessara::testing {

// What an operation does where memory runs out.
enum class OutOfMemory {
    NEVER,      // it allocates nothing
    TOLD,       // its result is a failure
    MAY_THROW,  // it lets std::bad_alloc pass: a list, a vector or a text grows, and has no result to tell it
                // by
};

struct FaultyOperation {
    const char* name;  // "Interface::Operation", and after a blank which of its paths
    OutOfMemory outOfMemory;
    bool (*call)(FaultScene& scene);  // whether it succeeds
    // What it can do without, if there is such a thing: its result is then as with memory.
    const char* spares = nullptr;
    // What it does about a refused query, where that is no failure that leaves everything as it was.
    const char* refusal = nullptr;
    // What it needs and others don't, if that takes time.
    void (*prepare)(FaultScene& scene) = nullptr;
};

// A scene in which the operation can be called.
struct PreparedScene : FaultScene {
    explicit PreparedScene(const FaultyOperation& operation) {
        if (operation.prepare != nullptr) operation.prepare(*this);
    }
};

using OperationTable = std::span<const FaultyOperation>;

// Another face of an object, without a query.
template <class Face, class I>
[[nodiscard]] Face* FaceOf(const IRef<I>& object) {
    return dynamic_cast<Face*>(object.Get());
}

[[nodiscard]] OperationTable FrameOperations();
[[nodiscard]] OperationTable ObjectOperations();
[[nodiscard]] OperationTable TextOperations();
[[nodiscard]] OperationTable MapOperations();
[[nodiscard]] OperationTable GeometryOperations();
[[nodiscard]] OperationTable AreaOperations();

}  // namespace tessara::testing
