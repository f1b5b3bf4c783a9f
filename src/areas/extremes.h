// Four positions of one reference, each the outermost found so far in its direction.
#pragma once

#include <array>

#include "records/axis.h"
#include "tessara/ckoord.h"

namespace tessara {

class Extremes {
  public:
    // Makes one position the outermost in every direction; earlier ones are forgotten.
    void Start(const CKoord& koord);
    // Whether there is any position yet.
    [[nodiscard]] bool HasStarted() const { return hasStarted_; }

    // Whether a position lies further out than the outermost one so far.
    [[nodiscard]] bool IsFurther(Compass direction, const CKoord& koord) const;
    // Each direction in which the position lies further out takes it: Extend the whole position, ExtendAxes
    // only the value of the direction's axis. A position that can't be compared extends nothing. ExtendAxes
    // is false if an axis can't be copied.
    void Extend(const CKoord& koord);
    bool ExtendAxes(const CKoord& koord);

    [[nodiscard]] const CKoord& operator[](Compass direction) const {
        return at_[static_cast<std::size_t>(direction)];
    }
    void Set(Compass direction, const CKoord& koord) { at_[static_cast<std::size_t>(direction)] = koord; }

  private:
    std::array<CKoord, COMPASS_COUNT> at_;  // in the order of Compass
    bool hasStarted_ = false;
};

inline constexpr Compass DIRECTIONS[] = {Compass::North, Compass::East, Compass::South, Compass::West};

}  // namespace tessara
