// Includes the kernel: plain functions on 64-byte records, without objects. Link with tessara::kernel
// (libtessara_kernel.a).
//
// Example: a record of degrees becomes one of UTM.
//
//     tessara::tagKOORD degrees = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_GEODEZ);
//     tessara::Store(degrees, tessara::GeodezPayload{48.1375, 11.5755, 520.0});
//     tessara::tagKOORD utm = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_UTM);
//     const tessara::KoordStatus status = tessara::KoordConvert(&degrees, &utm);  // KOORD_OK
//
// The kernel keeps no global state, allocates nothing and throws nothing. Any number of threads may call it
// at once on records that nobody writes meanwhile.
#pragma once

#include "tessara/internal/koord_layout.h"
#include "tessara/internal/map_layout.h"
#include "tessara/kernel/austrian_grids.h"
#include "tessara/kernel/classical_formulas.h"
#include "tessara/kernel/columns.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convergence.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/dutch_grid.h"
#include "tessara/kernel/ecef.h"
#include "tessara/kernel/fixed_grids.h"
#include "tessara/kernel/formulas.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/geodesic_columns.h"
#include "tessara/kernel/georef.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/lambert.h"
#include "tessara/kernel/lettered_grids.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/map.h"
#include "tessara/kernel/map_types.h"
#include "tessara/kernel/names.h"
#include "tessara/kernel/range_checks.h"
#include "tessara/kernel/swiss_grid.h"
#include "tessara/kernel/systems.h"
#include "tessara/kernel/transverse_mercator.h"
#include "tessara/kernel/ups.h"
#include "tessara/kernel/utmref.h"
#include "tessara/kernel/van_der_grinten.h"
#include "tessara/kernel/wagner_iv.h"
#include "tessara/kernel/zone_systems.h"
