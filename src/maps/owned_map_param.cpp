#include "maps/owned_map_param.h"

#include <utility>

namespace tessara {

OwnedMapParam::~OwnedMapParam() {
    MapReferenceNode* node = record_.reference.next;
    while (node) {
        delete std::exchange(node, node->next);
    }
}

MapParam OwnedMapParam::Release() {
    const MapParam record = record_;
    record_.referenceCount = 0;
    record_.reference.next = nullptr;
    return record;
}

}  // namespace tessara
