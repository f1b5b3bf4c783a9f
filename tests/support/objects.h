// Objects of a host, correct and incorrect ones.
#pragma once

#include <cstdio>
#include <string>

#include "tessara/coord.h"
#include "tessara/coord_geographic.h"
#include "tessara/coordinate_reference.h"
#include "tessara/host/text.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::testing {

// The text of a GUID, without braces.
[[nodiscard]] inline std::string TextOf(const GUID& id) {
    char text[37];
    std::snprintf(text, sizeof text, "%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X", id.Data1, id.Data2,
                  id.Data3, id.Data4[0], id.Data4[1], id.Data4[2], id.Data4[3], id.Data4[4], id.Data4[5],
                  id.Data4[6], id.Data4[7]);
    return text;
}

// The reference count of an object.
[[nodiscard]] inline std::uint32_t CountOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

template <class I>
[[nodiscard]] std::uint32_t CountOf(const IRef<I>& handle) {
    return CountOf(handle.Get());
}

// Supports IUnknown and no other interface.
class Stranger : public IUnknown {
  public:
    using Faces = FaceList<IUnknown>;

  protected:
    ~Stranger() = default;
};

[[nodiscard]] inline IRef<IUnknown> MakeStranger() {
    return IRef<IUnknown>(NewObject<Stranger>());
}

// Passes an object as another interface, an error that no compiler detects in a C interface. Operations only
// query such an argument, which every object supports.
template <class I>
[[nodiscard]] I* Disguised(const IRef<IUnknown>& object) {
    return reinterpret_cast<I*>(object.Get());
}

// A host's own ICoord, without a record.
class HostCoord : public ICoord {
  public:
    using Faces = FaceList<ICoord>;

    bool SetPixel(double, double) override { return true; }
    bool GetPixel(double*, double*) override { return false; }
    bool SetHeight(double) override { return true; }
    double GetHeight() override { return 0.0; }
    bool GetGeographic(ICoordGeographic*) override { return false; }
    bool SetGeographic(ICoordGeographic*) override { return false; }
    bool SetReference(ICoordinateReference*) override { return false; }
    bool GetReference(ICoordinateReference* target) override {
        const IRef<ICoordinateReference> reference(target);
        return reference.IsValid() && reference->SetDatum(2) && reference->SetSystem(2);
    }

  protected:
    ~HostCoord() = default;
};

// A host's own reference: returns the numbers it was created with, legal or not, and accepts none.
class HostReference : public ICoordinateReference {
  public:
    using Faces = FaceList<ICoordinateReference>;

    HostReference(std::int32_t datum, std::int32_t system) : datum_(datum), system_(system) {}

    std::int32_t GetDatum() override { return datum_; }
    bool SetDatum(std::int32_t) override { return false; }
    std::int32_t GetSystem() override { return system_; }
    bool SetSystem(std::int32_t) override { return false; }
    void GetDatumName(ITessaraString*) override {}
    void GetSystemName(ITessaraString*) override {}

  protected:
    ~HostReference() = default;

  private:
    std::int32_t datum_;
    std::int32_t system_;
};

[[nodiscard]] inline IRef<ICoordinateReference> MakeHostReference(std::int32_t datum, std::int32_t system) {
    return IRef<ICoordinateReference>(NewObject<HostReference>(datum, system));
}

[[nodiscard]] inline IRef<ITessaraString> MakeText(const char* text = "") {
    IRef<ITessaraString> made(NewObject<host::Text>());
    made->AssignText(text);
    return made;
}

}  // namespace tessara::testing
