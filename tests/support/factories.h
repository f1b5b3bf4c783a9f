// The library's class factories for tests that link the parts of the library.
#pragma once

#include "frame/class_factory.h"
#include "tessara/ref.h"

namespace tessara::testing {

// The registered factory of a class; null for a class without one.
[[nodiscard]] inline MClassFactory* FactoryOf(const GUID& classId) {
    MClassFactory* factory = FirstClassFactory();
    while (factory != nullptr && !(*factory->ClassId() == classId))
        factory = factory->Next();
    return factory;
}

// Makes a singleton's factory release its object.
inline void TerminateFactory(MClassFactory* factory) {
    IRef<ITerminator>(factory)->Terminate();
}

}  // namespace tessara::testing
