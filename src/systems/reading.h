// The conversions that a row of the table of systems refers to, as Read<UTM_ToGeodetic> or
// Write<UTM_FromGeodetic>. The signature of a conversion determines its further arguments: none, the datum,
// or the constants of one or both directions.
#pragma once

#include "kernel/payload_in.h"
#include "kernel/transverse_mercator_constants.h"
#include "systems/projection.h"
#include "systems/reference.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

namespace reading {

template <class Payload>
KoordStatus Call(KoordStatus (*toGeodetic)(const Payload*, double*, const TmConstants*),
                 const tagKOORD& source, double* position) {
    const auto payload = Load<Payload>(source);
    return toGeodetic(&payload, position, TmInverseConstants(DatumOf(source)));
}

template <class Payload>
KoordStatus Call(KoordStatus (*toGeodetic)(const Payload*, double*, const TmConstants*, const TmConstants*),
                 const tagKOORD& source, double* position) {
    const auto payload = Load<Payload>(source);
    return toGeodetic(&payload, position, TmForwardConstants(DatumOf(source)),
                      TmInverseConstants(DatumOf(source)));
}

template <class Payload>
KoordStatus Call(KoordStatus (*toGeodetic)(const Payload*, double*, std::int32_t), const tagKOORD& source,
                 double* position) {
    const auto payload = Load<Payload>(source);
    return toGeodetic(&payload, position, DatumOf(source));
}

template <class Payload>
KoordStatus Call(void (*toGeodetic)(const Payload*, double*, std::int32_t), const tagKOORD& source,
                 double* position) {
    const auto payload = Load<Payload>(source);
    toGeodetic(&payload, position, DatumOf(source));
    return KOORD_OK;
}

template <class Payload>
KoordStatus Call(KoordStatus (*toGeodetic)(const Payload*, double*), const tagKOORD& source,
                 double* position) {
    const auto payload = Load<Payload>(source);
    return toGeodetic(&payload, position);
}

template <class Payload>
KoordStatus Call(void (*toGeodetic)(const Payload*, double*), const tagKOORD& source, double* position) {
    const auto payload = Load<Payload>(source);
    toGeodetic(&payload, position);
    return KOORD_OK;
}

template <class Payload>
KoordStatus Call(KoordStatus (*fromGeodetic)(const double*, Payload*, const TmConstants*),
                 const double* position, tagKOORD* target) {
    return fromGeodetic(position, PayloadIn<Payload>(target), TmForwardConstants(DatumOf(*target)));
}

template <class Payload>
KoordStatus Call(KoordStatus (*fromGeodetic)(const double*, Payload*, std::int32_t), const double* position,
                 tagKOORD* target) {
    return fromGeodetic(position, PayloadIn<Payload>(target), DatumOf(*target));
}

template <class Payload>
KoordStatus Call(void (*fromGeodetic)(const double*, Payload*, std::int32_t), const double* position,
                 tagKOORD* target) {
    fromGeodetic(position, PayloadIn<Payload>(target), DatumOf(*target));
    return KOORD_OK;
}

template <class Payload>
KoordStatus Call(KoordStatus (*fromGeodetic)(const double*, Payload*), const double* position,
                 tagKOORD* target) {
    return fromGeodetic(position, PayloadIn<Payload>(target));
}

template <class Payload>
KoordStatus Call(void (*fromGeodetic)(const double*, Payload*), const double* position, tagKOORD* target) {
    fromGeodetic(position, PayloadIn<Payload>(target));
    return KOORD_OK;
}

}  // namespace reading

// Converts a record to latitude, longitude and height on its own datum.
template <auto toGeodetic>
KoordStatus Read(const tagKOORD& source, const Projection& /*projection*/, double* position) {
    return reading::Call(toGeodetic, source, position);
}

// Converts a position on the target's datum to the target's form.
template <auto fromGeodetic>
KoordStatus Write(const double* position, const Projection& /*projection*/, tagKOORD* target) {
    return reading::Call(fromGeodetic, position, target);
}

}  // namespace tessara
