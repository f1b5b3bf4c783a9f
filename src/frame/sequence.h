// A growing sequence. Besides std::bad_alloc it throws two exceptions, whose texts are part of the contract.
#pragma once

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

namespace tessara {

template <class T, class Allocator = std::allocator<T>>
class Sequence {
  public:
    [[nodiscard]] std::size_t Size() const { return items_.size(); }

    void Append(T item) {
        if (items_.size() >= items_.max_size()) throw std::length_error("vector<T> too long");
        items_.push_back(std::move(item));
    }

    [[nodiscard]] T& operator[](std::size_t index) { return items_[Checked(index)]; }
    [[nodiscard]] const T& operator[](std::size_t index) const { return items_[Checked(index)]; }

    // Removes an item, closes the gap and returns the item.
    T Extract(std::size_t index) {
        T item = std::move(items_[Checked(index)]);
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
        return item;
    }

    void Swap(Sequence& other) noexcept { items_.swap(other.items_); }

  private:
    [[nodiscard]] std::size_t Checked(std::size_t index) const {
        if (index >= items_.size()) throw std::out_of_range("invalid vector<T> subscript");
        return index;
    }

    std::vector<T, Allocator> items_;
};

}  // namespace tessara
