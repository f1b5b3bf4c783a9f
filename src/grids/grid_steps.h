// Where the lines of a grid stand along one axis: at whole multiples of a step from an anchor.
#pragma once

#include <functional>

#include "records/axis.h"
#include "tessara/ckoord.h"

namespace tessara {

enum class FirstLine { Found, None, Failed };

class GridSteps {
  public:
    // Lines of equal value on the axis. A step below `finest` moves no line.
    GridSteps(Axis axis, double step, double finest) : axis_(axis), step_(step), finest_(finest) {}

    // Moves a place to the first line at it or beyond: east of it or north of it. For north lines the place
    // then lies on the line that goes north through the anchor. None, with the place unchanged, if the system
    // or the zone ends before the line.
    FirstLine MoveToFirst(CKoord* place) const;

    // Calls draw(place) for a place on a line and for each line after it up to `last`. It ends early where
    // the system or the zone does and where a step is too small to move a place. False if a draw is, and for
    // places that can't be compared.
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
