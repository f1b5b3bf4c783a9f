// For a module that has to be small: columns are converted record by record. The linker takes these
// definitions in the place of the kernel's, and leaves out the formulas for blocks. The results are the same.
#include "systems/block_conversion.h"

namespace tessara {

constinit const BlockForm GEODEZ_BLOCKS, UTM_BLOCKS, UTMREF_BLOCKS, GK_BLOCKS, GK6_BLOCKS, BMN_BLOCKS,
    OEM_BLOCKS, GKAT_BLOCKS, BNG_BLOCKS, ING_BLOCKS, LUREF_BLOCKS, PO_MILITARY_BLOCKS, TM_BLOCKS, ECEF_BLOCKS,
    UPS_BLOCKS, CH_BLOCKS, RD_BLOCKS, VDG_BLOCKS, LAMBERTCC_BLOCKS;

// Blocks are never worthwhile, so that nothing below is called.
void BlockConversion::Prepare(const Conversion&, const tagKOORD&, const tagKOORD&, RangeCheck) {}
void BlockConversion::Clear(Block&, std::size_t) const {}
void BlockConversion::Load(std::span<const tagKOORD>, Block&) const {}
void BlockConversion::Admit(Block&, std::size_t) const {}
void BlockConversion::LoadWanted(std::span<const tagKOORD>, Block&) const {}
void BlockConversion::Compute(Block&, std::size_t, InstructionSet) const {}
void BlockConversion::Store(const Block&, std::span<tagKOORD>, std::span<KoordStatus>) const {}

}  // namespace tessara
