#include "frame/class_factory.h"

#include <utility>

namespace tessara {
namespace {

// Initialized before any constructor runs, so that the list keeps every factory, in whatever order they are
// constructed.
constinit MClassFactory* g_firstFactory = nullptr;

}  // namespace

MClassFactory::MClassFactory(const GUID* classId, const char* className)
    : classId_(classId), className_(className), next_(std::exchange(g_firstFactory, this)) {}

MClassFactory* FirstClassFactory() {
    return g_firstFactory;
}

}  // namespace tessara
