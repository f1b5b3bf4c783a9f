// A list with a maximum number of elements. An operation that writes more of them fails, instead of running
// for seconds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "tessara/array.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::toolkit {

class CappedArray : public IArray {
  public:
    using Faces = FaceList<IArray>;

    explicit CappedArray(std::uint32_t most) : most_(most) {}

    // Throws as a list does that can't grow: the operation that writes the list fails.
    void Add(IUnknown* object) override {
        if (objects_.size() == most_) throw std::bad_alloc();
        objects_.emplace_back(object);
    }

    void RemoveAt(std::uint32_t index) override {
        if (index < objects_.size()) objects_.erase(objects_.begin() + static_cast<std::ptrdiff_t>(index));
    }

    std::uint32_t GetCount() override { return static_cast<std::uint32_t>(objects_.size()); }
    IUnknown* GetAt(std::uint32_t index) override {
        return index < objects_.size() ? objects_[index].Get() : nullptr;
    }
    void Clear() override { objects_.clear(); }

  protected:
    ~CappedArray() = default;

  private:
    std::uint32_t most_;
    std::vector<IRef<IUnknown>> objects_;
};

}  // namespace tessara::toolkit
