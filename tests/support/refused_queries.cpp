#include "support/refused_queries.h"

#if defined(__unix__)

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

namespace tessara::testing {
namespace {

constinit RefusedQueries* g_queries = nullptr;

void**& TableIn(IUnknown* object) {
    return *reinterpret_cast<void***>(object);
}

}  // namespace

RefusedQueries::RefusedQueries() {
    g_queries = this;
}

RefusedQueries::~RefusedQueries() {
    g_queries = nullptr;
}

void RefusedQueries::Refuse(int nth, Refusal refusal) {
    asked_ = 0;
    nth_ = nth;
    refusal_ = refusal;
    action_ = nullptr;
}

void RefusedQueries::Interrupt(int nth, std::function<void()> action) {
    Refuse(nth, Refusal::ONCE);
    action_ = std::move(action);
}

bool RefusedQueries::IsRefused() const {
    if (nth_ == 0 || action_) return false;
    return refusal_ == Refusal::ONCE ? asked_ == nth_ : asked_ >= nth_;
}

// The replaced table of an object, recognised by its first operation.
RefusedQueries::Table* RefusedQueries::TableOf(IUnknown* object) {
    void** const operations = TableIn(object);
    if (operations[0] != reinterpret_cast<void*>(&Ask)) return nullptr;
    return reinterpret_cast<Table*>(reinterpret_cast<std::byte*>(operations) - offsetof(Table, operations));
}

// The length of a table is unknown, so the copy includes some memory after it, which is never called.
__attribute__((no_sanitize("address", "undefined"))) void RefusedQueries::TakeOver(IUnknown* object) {
    if (object == nullptr || TableOf(object) != nullptr) return;
    void* const* const original = TableIn(object);
    Table& table = tables_.emplace_back();
    table.original = original;
    table.offsetToTop = original[-2];
    table.typeInfo = original[-1];
    for (std::size_t i = 0; i < std::size(table.operations); ++i)
        table.operations[i] = original[i];
    table.operations[0] = reinterpret_cast<void*>(&Ask);
    TableIn(object) = table.operations;
}

ResultCode RefusedQueries::Ask(IUnknown* object, const GUID* iid, void** out) {
    ++g_queries->asked_;
    if (g_queries->IsRefused()) {
        *out = nullptr;
        return RESULT_NO_INTERFACE;
    }
    // The action may release other references to the object.
    object->AddRef();
    const auto release = [](IUnknown* held) { held->Release(); };
    const std::unique_ptr<IUnknown, decltype(release)> held(object, release);
    // The action can set the next one.
    if (g_queries->action_ && g_queries->asked_ == g_queries->nth_) {
        g_queries->nth_ = 0;
        std::exchange(g_queries->action_, nullptr)();
    }
    using Query = ResultCode (*)(IUnknown*, const GUID*, void**);
    const auto query = reinterpret_cast<Query>(TableOf(object)->original[0]);
    const ResultCode result = query(object, iid, out);
    // Another interface of the object has its own table.
    if (result == RESULT_OK) g_queries->TakeOver(static_cast<IUnknown*>(*out));
    return result;
}

}  // namespace tessara::testing

#endif
