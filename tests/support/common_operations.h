// The most common operations of a host, on existing objects: a benchmark measures them and a test counts
// their allocations.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/coord_geographic.h"
#include "tessara/coordinate_checker.h"
#include "tessara/coordinate_reference.h"
#include "tessara/coordinate_string.h"
#include "tessara/coordinate_transfer.h"
#include "tessara/host/text.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::testing {

class CommonOperations {
  public:
    struct Operation {
        const char* name;
        std::function<void()> run;
    };

    static constexpr std::int32_t DATUM_GER = 3;  // on Bessel's ellipsoid

    CommonOperations() {
        Set(bessel_, DATUM_GER, KOORD_GEOGRAD);
        Set(besselUtm_, DATUM_GER, KOORD_UTM);
        Set(wgs84Utm_, DATUM_WGS84, KOORD_UTM);
        Set(wgs84Utmref_, DATUM_WGS84, KOORD_UTMREF);
        munich_->Set(11.5755, 48.1375, 520.0);
        Require(coord_->SetGeographic(munich_.Get()));
        Require(utmref_->SetReference(wgs84Utmref_.Get()) && utmref_->SetGeographic(munich_.Get()));
        Require(target_->SetReference(wgs84Utmref_.Get()));
        sexagesimal_.north->AssignText("N 48 08 15.000");
        sexagesimal_.east->AssignText("E 11 34 31.800");
        grid_.north->AssignText("N 5334791.145");
        grid_.east->AssignText("32 691602.660");
        reference_.north->AssignText("U U 34791");
        reference_.east->AssignText("32 P 91602");
        Require(string_->SetCoord(utmref_.Get()));
    }

    // In the order of a request. The last three are whole requests.
    [[nodiscard]] std::vector<Operation> All() {
        return {
            {"make a coordinate", [] { Require(IRef<ICoord>(CreateClassCoord()).IsValid()); }},
            {"make a coordinate's string",
             [] { Require(IRef<ICoordinateString>(CreateClassCoordinateString()).IsValid()); }},
            {"set degrees", [this] { Require(coord_->SetGeographic(munich_.Get())); }},
            {"read degrees", [this] { Require(utmref_->GetGeographic(degrees_.Get())); }},
            {"change the reference and back",
             [this] {
                 Require(coord_->SetReference(wgs84Utm_.Get()) && coord_->SetReference(wgs84Utmref_.Get()));
             }},
            {"transfer to another reference",
             [this] { Require(transfer_->Transfer(besselCoord_.Get(), target_.Get())); }},
            {"check a reference's position", [this] { Require(checker_->CheckCoord(utmref_.Get())); }},
            {"read two texts",
             [this] {
                 Require(parser_->ParseCoord(bessel_.Get(), sexagesimal_.North(), sexagesimal_.East()));
             }},
            {"write two texts",
             [this] {
                 Require(string_->GetNorthText(written_.North()) && string_->GetEastText(written_.East()));
             }},
            {"write a text for a screen",
             [this] { Require(string_->GetNorthDisplayText(written_.North())); }},
            {"request: degrees to UTMREF", [this] { Request(sexagesimal_, bessel_); }},
            {"request: UTM to UTMREF", [this] { Request(grid_, besselUtm_); }},
            {"request: UTMREF to UTMREF", [this] { Request(reference_, wgs84Utmref_); }},
        };
    }

  private:
    struct Texts {
        IRef<ITessaraString> north{NewObject<host::Text>()};
        IRef<ITessaraString> east{NewObject<host::Text>()};
        [[nodiscard]] ITessaraString* North() const { return north.Get(); }
        [[nodiscard]] ITessaraString* East() const { return east.Get(); }
    };

    static void Require(bool isDone) {
        if (!isDone) throw std::logic_error("an operation fails");
    }

    static void Set(const IRef<ICoordinateReference>& reference, std::int32_t datum, std::int32_t system) {
        Require(reference->SetDatum(datum) && reference->SetSystem(system));
    }

    // Converts two texts in one reference to the text of a military reference on WGS84.
    void Request(const Texts& texts, const IRef<ICoordinateReference>& reference) {
        Require(parser_->ParseCoord(reference.Get(), texts.North(), texts.East()) &&
                parser_->GetCoord(coord_.Get()) && coord_->SetReference(wgs84Utmref_.Get()) &&
                string_->SetCoord(coord_.Get()) && string_->GetNorthDisplayText(written_.North()));
    }

    static IRef<ICoord> BesselCoord() {
        IRef<ICoord> coord(CreateClassCoord());
        CKoord koord(MakeKoord(DATUM_GER, KOORD_GEODEZ));
        Store(koord, GeodezPayload{48.1375, 11.5755, 520.0});
        Require(IRef<ICoordInternal>(coord)->SetKoord(&koord));
        return coord;
    }

    IRef<ICoordGeographic> munich_{CreateClassCoordGeographic()};
    IRef<ICoordGeographic> degrees_{CreateClassCoordGeographic()};
    IRef<ICoord> coord_{CreateClassCoord()};
    IRef<ICoord> utmref_{CreateClassCoord()};
    IRef<ICoord> target_{CreateClassCoord()};
    IRef<ICoord> besselCoord_{BesselCoord()};
    IRef<ICoordinateReference> bessel_{CreateClassCoordinateReference()};
    IRef<ICoordinateReference> besselUtm_{CreateClassCoordinateReference()};
    IRef<ICoordinateReference> wgs84Utm_{CreateClassCoordinateReference()};
    IRef<ICoordinateReference> wgs84Utmref_{CreateClassCoordinateReference()};
    IRef<ICoordinateTransfer> transfer_{CreateClassCoordinateTransfer()};
    IRef<ICoordinateChecker> checker_{CreateClassCoordinateChecker()};
    IRef<ICoordinateString> parser_{CreateClassCoordinateString()};
    IRef<ICoordinateString> string_{CreateClassCoordinateString()};
    Texts sexagesimal_, grid_, reference_, written_;
};

}  // namespace tessara::testing
