// The positions of a grid's lines along one axis: multiples of the step from an anchor.
#pragma once

#include <functional>

#include "records/axis.h"
#include "tessara/ckoord.h"

namespace tessara {

enum class FirstLine { Found, None, Failed };

class GridSteps {
  public:
    // For lines of constant value on the axis. A step below `finest` moves no line.
    GridSteps(Axis axis, double step, double finest) : axis_(axis), step_(step), finest_(finest) {}

    // Moves a place to the first line at or beyond it, to the east or north. For north lines the place then
    // also lies on the line that runs north through the anchor. FirstLine::None, with the place unchanged,
    // if the system or the zone ends before the line.
    FirstLine MoveToFirst(CKoord* place) const;

    // Calls draw(place) for a place on a line and for each following line up to `last`. Ends early, with
    // true, at the end of the system or the zone and if the step is too small to move a place. False if a
    // draw returns false or places can't be compared.
    [[nodiscard]] bool Walk(CKoord place, const CKoord& last,
                            const std::function<bool(const CKoord&)>& draw) const;

  private:
    bool FindAnchor(const CKoord& place, CKoord* anchor) const;
    bool MoveBy(double delta, CKoord* place) const;
    bool Advance(CKoord* place) const;

    Axis axis_;
    double step_;
    double finest_;
};

}  // namespace tessara
