// A rectangle for hosts: IRef<IRect> sheet(NewObject<host::Rect>(left, top, right, bottom));
#pragma once

#include "tessara/object.h"
#include "tessara/rect.h"

namespace tessara::host {

class Rect : public IRect {
  public:
    using Faces = FaceList<IRect>;

    Rect(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom)
        : left_(left), top_(top), right_(right), bottom_(bottom) {}

    std::int32_t GetTop() override { return top_; }
    std::int32_t GetLeft() override { return left_; }
    std::int32_t GetBottom() override { return bottom_; }
    std::int32_t GetRight() override { return right_; }

  protected:
    ~Rect() = default;

  private:
    std::int32_t left_;
    std::int32_t top_;
    std::int32_t right_;
    std::int32_t bottom_;
};

}  // namespace tessara::host
