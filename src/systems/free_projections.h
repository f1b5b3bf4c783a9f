// The conversions whose functions don't have the signatures of Read and Write.
#pragma once

#include "kernel/grid_factors.h"
#include "systems/projection.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// For a type that can't be read or written: KOORD_ERR_TYPE.
KoordStatus RefuseToRead(const tagKOORD& source, const Projection& projection, double* position);
KoordStatus RefuseToWrite(const double* position, const Projection& projection, tagKOORD* target);

TmParams ParamsOf(const TmPayload& p);

inline void GEODEZ_ToGeodetic(const GeodezPayload* payload, double* position) {
    position[0] = payload->latitude;
    position[1] = payload->longitude;
    position[2] = payload->height;
}

inline void GEODEZ_FromGeodetic(const double* position, GeodezPayload* payload) {
    *payload = {position[0], position[1], position[2]};
}

KoordStatus VDG_ReadPayload(const VdgPayload* payload, double* latLon, std::int32_t datum);

KoordStatus ECEF_Read(const tagKOORD& source, const Projection& projection, double* position);
KoordStatus ECEF_Write(const double* position, const Projection& projection, tagKOORD* target);
KoordStatus TM_Read(const tagKOORD& source, const Projection& projection, double* position);
KoordStatus TM_Write(const double* position, const Projection& projection, tagKOORD* target);
KoordStatus LAMBERTCC_Read(const tagKOORD& source, const Projection& projection, double* position);
KoordStatus LAMBERTCC_Write(const double* position, const Projection& projection, tagKOORD* target);

FactorsFunction TM_RecordFactors, LAMBERTCC_RecordFactors;

}  // namespace tessara
