// A map of a host may stop answering at any call.
#include <gtest/gtest.h>

#include "support/host_map.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "tessara/coordinate_transfer.h"

namespace tessara::testing {
namespace {

class TransferOnFailingMaps : public BalancedTest {
  protected:
    static constexpr int ALWAYS = 1000;

    IRef<ICoordinateTransfer> transfer{CreateClassCoordinateTransfer()};
    FailingMap* host = NewObject<FailingMap>(DegreeMap(8.0, 49.0, 1000.0), ALWAYS);
    FailingMap* other = NewObject<FailingMap>(DegreeMap(7.0, 50.0, 500.0), ALWAYS);
    IRef<IMapCoordOperations> map{host};
    IRef<IMapCoordOperations> otherMap{other};
};

TEST_F(TransferOnFailingMaps, OntoAMapItNeedsEachAnswer) {
    const IRef<ICoord> source = CoordOf(GeodezRecord(48.0, 9.0));
    const IRef<ICoord> pixel = CoordOf(FloatPixel(100.0, 200.0));
    for (const IRef<ICoord>& from : {source, pixel}) {
        ExpectFailureAtEachCall(host, [&] {
            const IRef<ICoord> target = CoordOf(GeodezRecord(0.0, 0.0));
            return transfer->TransferToMap(map.Get(), from.Get(), target.Get());
        });
    }
}

TEST_F(TransferOnFailingMaps, BetweenMapsItNeedsEachAnswerOfBoth) {
    const IRef<ICoord> pixel = CoordOf(FloatPixel(1000.0, 500.0));
    const auto carry = [&] {
        const IRef<ICoord> target = CoordOf(FloatPixel(0.0, 0.0));
        return transfer->TransferBetweenMaps(map.Get(), pixel.Get(), otherMap.Get(), target.Get());
    };
    ExpectFailureAtEachCall(host, carry);
    host->GiveUpAfter(ALWAYS);
    ExpectFailureAtEachCall(other, carry);
}

}  // namespace
}  // namespace tessara::testing
