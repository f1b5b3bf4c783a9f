// The owner of a chain of reference points.
//
// Copying a MapParam copies the pointer to its chain, so a record can't own one. This class is the only
// place that frees nodes: each map object holds one, the factory holds one while it builds, and the chain
// moves from one to the other together with the record.
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

    // Takes the record and takes over its chain. The previous chain isn't freed: a copy of the record made
    // earlier may still be read, and may be the very record that is passed.
    void Adopt(const MapParam& record) { record_ = record; }

    // Takes the record and a copy of its chain, and frees the previous chain. False without memory; the
    // record is then empty.
    [[nodiscard]] bool CopyWithChain(const MapParam& record);

    // Returns the record to a caller that takes over its chain. This object keeps no chain.
    MapParam Release();

  private:
    void FreeChain();

    MapParam record_;
};

}  // namespace tessara
