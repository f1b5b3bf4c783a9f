// A list of doubles of any length, as a value: three of them are a position in earth-centred space or a
// direction.
//
//     Vector up{0.0, 0.0, 1.0};
//     const Vector normal = vectors->Normalize(up);
//
// Vectors cross the border of the library in both directions, as arguments by reference and as results by
// value. So they have nothing of a standard library in them, and a host that doesn't use this header can
// write them from this table (64-bit pointers):
//
//     byte  0   double* items           the numbers; null in a vector without room
//           8   uint32  size            how many there are
//          12   uint32  capacity        how many there is room for, at least `size`
//          16   void (*free)(double*)   gives the numbers back; not called for null
//
// The module that allocates the numbers stores its own function in `free`, and whoever ends the vector, the
// other module included, calls it, once. So neither side needs the other's heap or standard library. What is
// passed in belongs to the caller before and after the call; the library reads `size` numbers of it. For an
// output (Vector*) the library calls `free` of the numbers that are there, and stores numbers and a `free` of
// its own. A result is the caller's to end: it comes as the platform's C++ binary interface returns a class
// with a destructor, in 24 bytes whose address the caller passes as a hidden first argument.
//
// The exceptions of this class are thrown by the code of this header, in the module that uses the subscript
// or has no memory left; the library tests sizes first and never lets an out_of_range pass. A vector that the
// library made must not outlive it, as its `free` is a function of the library.
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

    // std::bad_alloc without memory, as with every copy.
    [[nodiscard]] static Vector Zeros(std::uint32_t size) {
        Vector zeros;
        zeros.Reserve(size);
        zeros.size_ = size;
        return zeros;
    }

    [[nodiscard]] std::uint32_t Size() const { return size_; }

    // An index at or past the size throws std::out_of_range, "invalid vector<T> subscript".
    [[nodiscard]] double& operator[](std::uint32_t index) { return items_[Checked(index)]; }
    [[nodiscard]] const double& operator[](std::uint32_t index) const { return items_[Checked(index)]; }

    // Beyond 2^32 - 1 elements throws std::length_error, "vector<T> too long".
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

    // Room for `capacity` elements, at least as many as there are; the new ones are zero.
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
