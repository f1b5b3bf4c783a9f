// An object manager for hosts: it stores the registered classes and creates their objects.
// tessara/component.h has an example.
#pragma once

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

#include "tessara/array.h"
#include "tessara/component.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::host {

class ObjectManager : public IObjectManager {
  public:
    using Faces = FaceList<IObjectManager>;
    using CreateArray = IArray*();

    // `createArray` is the library's CreateClassArray, linked or looked up: the manager creates
    // CLSID_HostArray with it. Without it that class is unknown.
    explicit ObjectManager(CreateArray* createArray = nullptr) : createArray_(createArray) {}

    // A class id that is registered already gets the new factory.
    ResultCode RegisterClass(const GUID* classId, MClassFactory* factory) override {
        if (classId == nullptr || factory == nullptr) return RESULT_FAIL;
        UnregisterClass(classId);
        try {
            classes_.emplace_back(*classId, factory);
        } catch (const std::bad_alloc&) {
            return RESULT_OUT_OF_MEMORY;
        }
        return RESULT_OK;
    }

    ResultCode UnregisterClass(const GUID* classId) override {
        if (classId == nullptr) return RESULT_FAIL;
        return std::erase_if(classes_, [classId](const Entry& entry) { return entry.first == *classId; }) > 0
                   ? RESULT_OK
                   : RESULT_FALSE;
    }

    ResultCode CreateInstance(const GUID* classId, const GUID* iid, void** out) override {
        if (out == nullptr) return RESULT_FAIL;
        *out = nullptr;
        if (classId == nullptr) return RESULT_FAIL;
        if (*classId == CLSID_HostArray && createArray_ != nullptr) return CreateHostArray(iid, out);
        const auto entry = std::find_if(classes_.begin(), classes_.end(),
                                        [classId](const Entry& e) { return e.first == *classId; });
        return entry != classes_.end() ? entry->second->CreateInstance(nullptr, iid, out) : RESULT_FAIL;
    }

    [[nodiscard]] std::size_t ClassCount() const { return classes_.size(); }

  protected:
    ~ObjectManager() = default;

  private:
    using Entry = std::pair<GUID, MClassFactory*>;

    ResultCode CreateHostArray(const GUID* iid, void** out) const {
        const IRef<IArray> array(createArray_());
        return array.IsValid() ? array->QueryInterface(iid, out) : RESULT_OUT_OF_MEMORY;
    }

    CreateArray* createArray_;
    std::vector<Entry> classes_;
};

}  // namespace tessara::host
