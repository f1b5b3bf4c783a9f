#pragma once

#include "frame/sequence.h"
#include "tessara/array.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class Array : public IArray {
  public:
    using Faces = FaceList<IArray>;

    void Add(IUnknown* object) override;
    void RemoveAt(std::uint32_t index) override;
    std::uint32_t GetCount() override;
    IUnknown* GetAt(std::uint32_t index) override;
    void Clear() override;

  protected:
    ~Array() = default;

  private:
    Sequence<IRef<IUnknown>> elements_;
};

}  // namespace tessara
