// Whole requests beside the peers: two texts on a Bessel datum become the text of a military reference on
// WGS84. Ours goes through the interfaces of the shared library. The peers' is GeographicLib for the texts
// and the reference and PROJ for the datum, from degrees, minutes and seconds in both rows.
#pragma once

#include <proj.h>

#include <GeographicLib/DMS.hpp>
#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/UTMUPS.hpp>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "bench/peers/contest.h"
#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/coordinate_reference.h"
#include "tessara/coordinate_string.h"
#include "tessara/host/text.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::bench {

// A position's two texts, as ours reads them and as the peers do.
struct RequestTexts {
    IRef<ITessaraString> north{NewObject<host::Text>()};
    IRef<ITessaraString> east{NewObject<host::Text>()};
    std::string peerNorth, peerEast;
};

class Request {
  public:
    Request(const std::vector<tagKOORD>& positions, std::int32_t system) {
        reference_->SetDatum(static_cast<std::int32_t>(positions.front().datum));
        reference_->SetSystem(system);
        wgs84_->SetDatum(DATUM_WGS84);
        wgs84_->SetSystem(KOORD_UTMREF);
        for (const tagKOORD& position : positions)
            texts_.push_back(TextsOf(position));
        // Whole metres.
        coord_->SetReference(wgs84_.Get());
        string_->SetCoord(coord_.Get());
        string_->SetNorthPrecision(1.0);
        string_->SetEastPrecision(1.0);
    }

    // Empty for a request that fails.
    std::string Ours(std::size_t i) {
        const RequestTexts& texts = texts_[i];
        const bool isDone = parser_->ParseCoord(reference_.Get(), texts.north.Get(), texts.east.Get()) &&
                            parser_->GetCoord(coord_.Get()) && coord_->SetReference(wgs84_.Get()) &&
                            string_->SetCoord(coord_.Get()) && string_->GetNorthDisplayText(written_.Get());
        return isDone ? written_->GetText() : "";
    }

    std::string Peers(std::size_t i, PJ* shift) const {
        const RequestTexts& texts = texts_[i];
        double latitude, longitude;
        GeographicLib::DMS::DecodeLatLon(texts.peerNorth, texts.peerEast, latitude, longitude);
        const PJ_COORD wgs84 =
            proj_trans(shift, PJ_FWD, proj_coord(proj_torad(longitude), proj_torad(latitude), 0.0, 0.0));
        latitude = proj_todeg(wgs84.lp.phi);
        longitude = proj_todeg(wgs84.lp.lam);
        int zone;
        bool isNorth;
        double x, y;
        GeographicLib::UTMUPS::Forward(latitude, longitude, zone, isNorth, x, y);
        std::string text;
        GeographicLib::MGRS::Forward(zone, isNorth, x, y, latitude, 5, text);
        return text;
    }

  private:
    // The texts of a position in degrees.
    RequestTexts TextsOf(const tagKOORD& position) {
        const IRef<ICoord> coord(CreateClassCoord());
        const CKoord koord(position);
        const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
        IRef<ICoordInternal>(coord)->SetKoord(&koord);
        coord->GetReference(reference.Get());
        RequestTexts texts;
        reference->SetSystem(KOORD_GEOGRAD);
        Write(coord, reference, texts);
        texts.peerNorth = ForPeers(texts.north->GetText());
        texts.peerEast = ForPeers(texts.east->GetText());
        Write(coord, reference_, texts);
        return texts;
    }

    static void Write(const IRef<ICoord>& coord, const IRef<ICoordinateReference>& reference,
                      const RequestTexts& texts) {
        const IRef<ICoordinateString> string(CreateClassCoordinateString());
        coord->SetReference(reference.Get());
        string->SetCoord(coord.Get());
        string->GetNorthText(texts.north.Get());
        string->GetEastText(texts.east.Get());
    }

    // "N 48 8 15.000" is "N48:8:15.000" there.
    static std::string ForPeers(std::string text) {
        text.erase(1, 1);
        for (char& c : text) {
            if (c == ' ') c = ':';
        }
        return text;
    }

    IRef<ICoordinateReference> reference_{CreateClassCoordinateReference()};
    IRef<ICoordinateReference> wgs84_{CreateClassCoordinateReference()};
    IRef<ICoordinateString> parser_{CreateClassCoordinateString()};
    IRef<ICoordinateString> string_{CreateClassCoordinateString()};
    IRef<ICoord> coord_{CreateClassCoord()};
    IRef<ITessaraString> written_{NewObject<host::Text>()};
    std::vector<RequestTexts> texts_;
};

}  // namespace tessara::bench
