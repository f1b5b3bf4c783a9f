// The library's class factories as a host sees them, for tests that link the library's parts.
#pragma once

#include "frame/class_factory.h"
#include "tessara/ref.h"

namespace tessara::testing {

// The registered factory of a class; null for one that has none.
[[nodiscard]] inline MClassFactory* FactoryOf(const GUID& classId) {
    MClassFactory* factory = FirstClassFactory();
    while (factory != nullptr && !(*factory->ClassId() == classId))
        factory = factory->Next();
    return factory;
}

// Makes a singleton's factory give up its object.
inline void TerminateFactory(MClassFactory* factory) {
    IRef<ITerminator>(factory)->Terminate();
}

}  // namespace tessara::testing
