// Objects that JavaScript holds by numbers from 1 on.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tessara::web {

template <class Object>
class Handles {
  public:
    [[nodiscard]] std::int32_t Add(std::unique_ptr<Object> object) {
        for (std::size_t i = 0; i < objects_.size(); ++i) {
            if (objects_[i]) continue;
            objects_[i] = std::move(object);
            return static_cast<std::int32_t>(i + 1);
        }
        objects_.push_back(std::move(object));
        return static_cast<std::int32_t>(objects_.size());
    }

    [[nodiscard]] const Object& At(std::int32_t handle) const {
        if (const Object* const found = Find(handle)) return *found;
        throw std::invalid_argument("it has been released");
    }

    // Null for one that has been released.
    [[nodiscard]] const Object* Find(std::int32_t handle) const {
        return IsThere(handle) ? objects_[static_cast<std::size_t>(handle) - 1].get() : nullptr;
    }

    void Remove(std::int32_t handle) {
        if (IsThere(handle)) objects_[static_cast<std::size_t>(handle) - 1].reset();
    }

  private:
    [[nodiscard]] bool IsThere(std::int32_t handle) const {
        return handle >= 1 && static_cast<std::size_t>(handle) <= objects_.size() &&
               objects_[static_cast<std::size_t>(handle) - 1] != nullptr;
    }

    std::vector<std::unique_ptr<Object>> objects_;
};

}  // namespace tessara::web
