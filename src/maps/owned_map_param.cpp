#include "maps/owned_map_param.h"

#include <new>
#include <utility>

namespace tessara {

OwnedMapParam::~OwnedMapParam() {
    FreeChain();
}

void OwnedMapParam::FreeChain() {
    MapReferenceNode* node = std::exchange(record_.reference.next, nullptr);
    while (node) {
        delete std::exchange(node, node->next);
    }
}

bool OwnedMapParam::CopyWithChain(const MapParam& record) {
    FreeChain();
    record_ = record;
    record_.reference.next = nullptr;
    MapReferenceNode* last = &record_.reference;
    for (const MapReferenceNode* node = record.reference.next; node; node = node->next) {
        last->next = new (std::nothrow) MapReferenceNode(*node);
        if (!last->next) {
            FreeChain();
            record_ = {};
            return false;
        }
        last = last->next;
        last->next = nullptr;
    }
    return true;
}

MapParam OwnedMapParam::Release() {
    const MapParam record = record_;
    record_.referenceCount = 0;
    record_.reference.next = nullptr;
    return record;
}

}  // namespace tessara
