// Who owns a chain of reference points.
//
// Copies of a MapParam copy the pointer to its chain, so a record can't own one. This is the one place that
// frees nodes: each map object holds one of these, the factory holds one while it builds, and the chain goes
// from the one to the other with the record.
#pragma once

#include "tessara/kernel/map.h"

namespace tessara {

class OwnedMapParam {
  public:
    OwnedMapParam() = default;
    OwnedMapParam(OwnedMapParam&& other) noexcept : record_(other.Release()) {}
    OwnedMapParam& operator=(OwnedMapParam&&) = delete;
    ~OwnedMapParam();

    MapParam& operator*() { return record_; }
    MapParam* operator->() { return &record_; }

    // Takes the record and takes over its chain. The chain that was there isn't freed: a record copied
    // earlier may still be read, and may be the very one that comes in.
    void Adopt(const MapParam& record) { record_ = record; }

    // Takes the record and a chain of its own that is equal to the record's, in place of what was there.
    // False without memory; this one is then empty.
    [[nodiscard]] bool CopyWithChain(const MapParam& record);

    // The record for whoever takes over its chain; this one is left without.
    MapParam Release();

  private:
    void FreeChain();

    MapParam record_;
};

}  // namespace tessara
