#pragma once

#include "tessara/coord_checker_utmref.h"
#include "tessara/object.h"

namespace tessara {

class CoordCheckerUTMREF : public ICoordCheckerUTMREF {
  public:
    using Faces = FaceList<ICoordCheckerUTMREF>;

    bool CheckCoord(ICoord* coord) override;
    bool GetZoneList(IArray* list) override;
    bool GetBandList(IArray* list) override;
    bool GetColumnList(IArray* list, std::int32_t datum, ITessaraString* zone, ITessaraString* band,
                       ITessaraString* column, ITessaraString* row) override;
    bool GetColumnListOf(IArray* list, ICoord* coord) override;
    bool GetRowList(IArray* list, std::int32_t datum, ITessaraString* zone, ITessaraString* band,
                    ITessaraString* column, ITessaraString* row) override;
    bool GetRowListOf(IArray* list, ICoord* coord) override;
    bool SplitCoord(ICoord* coord, ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                    ITessaraString* row, ITessaraString* easting, ITessaraString* northing) override;
    bool ComposeCoord(ITessaraString* zone, ITessaraString* band, ITessaraString* column, ITessaraString* row,
                      ITessaraString* easting, ITessaraString* northing, CKoord* target) override;

  protected:
    ~CoordCheckerUTMREF() = default;
};

}  // namespace tessara
