// Convergence and scale of each projection, which stand in the source of the projection, beside its
// constants. `latLon` is degrees on the datum of the record, which is one of the table; of the record what
// says the zone and the parameters is read.
#pragma once

#include "tessara/kernel/convergence.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/lambert.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

inline constexpr double DEGREES_PER_TURN = 360.0;

using FactorsFunction = KoordStatus(const tagKOORD& record, const double* latLon, GridFactors* factors);

// Of a grid with the scale k on its central meridian.
void TM_Factors(const double* latLon, double centralMeridian, double k, const TmConstants& forward,
                GridFactors* factors);
// Of a grid from an origin.
KoordStatus TmOrigin_Factors(const TmParams& projection, const tagKOORD& record, const double* latLon,
                             GridFactors* factors);
void LambertCC_Factors(const double* latLon, const LambertCC& cone, GridFactors* factors);

FactorsFunction UTM_Factors, UTMREF_Factors, GK_Factors, GK6_Factors;
FactorsFunction BMN_Factors;  // OEM and GK-AT, too: they differ by false origins
FactorsFunction POMilitary_Factors, LUREF_Factors, BNG_Factors, ING_Factors;
FactorsFunction CH_Factors, RD_Factors, UPS_Factors;

}  // namespace tessara
