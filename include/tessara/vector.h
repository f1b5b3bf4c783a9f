// A list of doubles with value semantics. With three elements it is a position in earth-centred space or a
// direction.
//
// Example:
//
//     tessara::Vector position{6378137.0, 0.0};
//     position.Append(0.0);
//     const std::uint32_t size = position.Size();  // 3
//
// Vectors cross the boundary of the library in both directions, by reference as arguments and by value as
// results. So their layout uses no type of a standard library, and a host that doesn't use this header can
// reproduce it (64-bit pointers):
//
//     byte  0   double* items           the numbers; null in a vector without room
//           8   uint32  size            the number of elements
//          12   uint32  capacity        the number of elements there is room for, at least `size`
//          16   void (*free)(double*)   deallocates the numbers; not called for null
//
// The module that allocates the numbers stores its own function in `free`. Whoever ends the vector calls it
// once, even in the other module, so neither side needs the other's heap or standard library. A vector that
// is passed in stays the caller's; the library reads `size` numbers of it. For an output (Vector*) the
// library calls `free` on the numbers that are there and stores numbers and a `free` of its own. A result is
// the caller's to end: the platform's C++ ABI returns a class with a destructor in memory that the caller
// provides, here 24 bytes whose address is a hidden first argument.
//
// Exceptions are thrown by code of this header only, in the module that uses the subscript or runs out of
// memory; the library checks sizes first and never lets an out_of_range out. A vector that the library made
// must not outlive it, as its `free` is a function of the library.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <utility>

namespace tessara {

class Vector {
  public:
    Vector() = default;
    Vector(std::initializer_list<double> values) : Vector(values.begin(), values.size()) {}
    Vector(const Vector& other) : Vector(other.items_, other.size_) {}
    Vector(Vector&& other) noexcept { Swap(other); }
    Vector& operator=(Vector other) noexcept {
        Swap(other);
        return *this;
    }
    ~Vector() {
        if (items_ != nullptr) free_(items_);
    }

    // std::bad_alloc if memory runs out, as for every copy.
    [[nodiscard]] static Vector Zeros(std::uint32_t size) {
        Vector zeros;
        zeros.Reserve(size);
        zeros.size_ = size;
        return zeros;
    }

    [[nodiscard]] std::uint32_t Size() const { return size_; }

    // An index that isn't below the size throws std::out_of_range, "invalid vector<T> subscript".
    [[nodiscard]] double& operator[](std::uint32_t index) { return items_[Checked(index)]; }
    [[nodiscard]] const double& operator[](std::uint32_t index) const { return items_[Checked(index)]; }

    // More than 2^32 - 1 elements throw std::length_error, "vector<T> too long".
    void Append(double value) {
        if (size_ == UINT32_MAX) throw std::length_error("vector<T> too long");
        if (size_ == capacity_) Reserve(size_ < UINT32_MAX / 2 ? 2 * size_ + 1 : UINT32_MAX);
        items_[size_++] = value;
    }

    void Clear() { *this = Vector(); }

    [[nodiscard]] const double* begin() const { return items_; }
    [[nodiscard]] const double* end() const { return items_ + size_; }

    [[nodiscard]] friend bool operator==(const Vector& left, const Vector& right) {
        return std::equal(left.begin(), left.end(), right.begin(), right.end());
    }

  private:
    Vector(const double* values, std::size_t count) {
        if (count > UINT32_MAX) throw std::length_error("vector<T> too long");
        Reserve(static_cast<std::uint32_t>(count));
        size_ = capacity_;
        std::copy_n(values, count, items_);
    }

    [[nodiscard]] std::uint32_t Checked(std::uint32_t index) const {
        if (index >= size_) throw std::out_of_range("invalid vector<T> subscript");
        return index;
    }

    // Makes room for `capacity` elements, at least as many as there are; new ones are zero.
    void Reserve(std::uint32_t capacity) {
        if (capacity == 0) return;
        Vector larger;
        larger.items_ = new double[capacity]();
        larger.capacity_ = capacity;
        larger.size_ = size_;
        std::copy_n(items_, size_, larger.items_);
        Swap(larger);
    }

    void Swap(Vector& other) noexcept {
        std::swap(items_, other.items_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
        std::swap(free_, other.free_);
    }

    static void Free(double* items) { delete[] items; }

    double* items_ = nullptr;
    std::uint32_t size_ = 0;
    std::uint32_t capacity_ = 0;
    void (*free_)(double* items) = &Free;
};

static_assert(sizeof(Vector) == 2 * sizeof(void*) + 8);

}  // namespace tessara
