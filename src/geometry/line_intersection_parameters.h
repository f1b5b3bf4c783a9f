#pragma once

#include "tessara/coord.h"
#include "tessara/kernel/constants.h"
#include "tessara/line_intersection_parameters.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class LineIntersectionParameters : public ILineIntersectionParameters {
  public:
    using Faces = FaceList<ILineIntersectionParameters>;

    ICoord* GetIntersection() override { return intersection_.Get(); }
    bool SetIntersection(ICoord* coord) override;
    ICoord* GetLineStart() override { return lineStart_.Get(); }
    bool SetLineStart(ICoord* coord) override;
    ICoord* GetLineEnd() override { return lineEnd_.Get(); }
    bool SetLineEnd(ICoord* coord) override;
    std::uint32_t GetSegmentIndex() override { return segmentIndex_; }
    bool SetSegmentIndex(std::uint32_t index) override;
    double GetParameter() override { return parameter_; }
    bool SetParameter(double parameter) override;

  protected:
    ~LineIntersectionParameters() override = default;

  private:
    static constexpr std::uint32_t NO_SEGMENT = 0xFFFFFFFF;

    IRef<ICoord> intersection_;
    IRef<ICoord> lineStart_;
    IRef<ICoord> lineEnd_;
    std::uint32_t segmentIndex_ = NO_SEGMENT;
    double parameter_ = MISSING_NUMBER;
};

}  // namespace tessara
