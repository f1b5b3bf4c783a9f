#include "faults/operation.h"
#include "support/factories.h"

namespace tessara::testing {
namespace {

using Scene = FaultScene;
using enum OutOfMemory;

// Longer than the room that a std::string has inside.
constexpr const char* LONG_TEXT = "a text of more than two dozen letters";

class ClassCounter final : public IClassSink {
  public:
    ResultCode QueryInterface(const GUID*, void**) override { return RESULT_NO_INTERFACE; }
    std::uint32_t AddRef() override { return 2; }
    std::uint32_t Release() override { return 1; }
    void OnClass(ITypeInfoDesc*) override { ++count; }

    int count = 0;
};

template <class I>
bool Answers(const IRef<I>& object, const GUID& iid) {
    void* out = nullptr;
    const ResultCode result = object->QueryInterface(&iid, &out);
    if (out != nullptr) static_cast<IUnknown*>(out)->Release();
    return result == RESULT_OK;
}

bool Creates(Scene& s, const GUID& classId) {
    void* out = nullptr;
    const ResultCode result = FactoryOf(classId)->CreateInstance(nullptr, &IID_IUnknown, &out);
    const bool isMade = s.Keep(static_cast<IUnknown*>(out));
    if (isMade) s.made->Release();  // the scene holds it now
    return result == RESULT_OK && isMade;
}

template <class I>
IRef<I> CoordFactory() {
    return IRef<I>(FactoryOf(CLSID_Coord));
}

// The component for a manager without registered classes.
ITessaraComponent* Component(Scene& s) {
    ITessaraComponent* component = nullptr;
    GetTessaraComponent(s.otherManager.Get(), &component);
    return component;
}

constexpr const char* EMPTY_ELEMENT = "an empty element takes up the place";

constexpr FaultyOperation FRAME_OPERATIONS[] = {
    {"IUnknown::QueryInterface", NEVER, [](Scene& s) { return Answers(s.utm, IID_ICoordInternal); }},
    {"IUnknown::AddRef", NEVER,
     [](Scene& s) { return s.inSquare->AddRef() == 2 && s.inSquare->Release() == 1; }},
    {"IUnknown::Release", NEVER,
     [](Scene& s) { return s.inSquare->AddRef() == 2 && s.inSquare->Release() == 1; }},

    {"IArray::Add", MAY_THROW, [](Scene& s) { return s.list->Add(s.utm.Get()), s.list->GetCount() == 1; },
     nullptr, EMPTY_ELEMENT},
    {"IArray::Add to a full one", MAY_THROW,
     [](Scene& s) { return s.square->Add(s.utm.Get()), s.square->GetCount() == 5; }, nullptr, EMPTY_ELEMENT},
    {"IArray::RemoveAt", NEVER, [](Scene& s) { return s.square->RemoveAt(0), s.square->GetCount() == 3; }},
    {"IArray::GetCount", NEVER, [](Scene& s) { return s.square->GetCount() == 4; }},
    {"IArray::GetAt", NEVER, [](Scene& s) { return s.square->GetAt(3) != nullptr; }},
    {"IArray::Clear", NEVER, [](Scene& s) { return s.square->Clear(), s.square->GetCount() == 0; }},

    {"IFloatPoint::SetX", NEVER, [](Scene& s) { return s.corner->SetX(7.0), s.corner->GetX() == 7.0; }},
    {"IFloatPoint::SetY", NEVER, [](Scene& s) { return s.corner->SetY(7.0), s.corner->GetY() == 7.0; }},
    {"IFloatPoint::SetZ", NEVER, [](Scene& s) { return s.corner->SetZ(7.0), s.corner->GetZ() == 7.0; }},
    {"IFloatPoint::GetX", NEVER, [](Scene& s) { return s.otherCorner->GetX() == 220.0; }},
    {"IFloatPoint::GetY", NEVER, [](Scene& s) { return s.otherCorner->GetY() == 180.0; }},
    {"IFloatPoint::GetZ", NEVER, [](Scene& s) { return s.otherCorner->GetZ() == 0.0; }},

    {"ITessaraString::Assign", TOLD,
     [](Scene& s) { return s.text->Assign(s.longText.Get()) && s.text->Compare(s.longText.Get()) == 0; }},
    {"ITessaraString::AssignText", MAY_THROW,
     [](Scene& s) { return s.text->AssignText(LONG_TEXT), s.text->CompareText(LONG_TEXT) == 0; }},
    {"ITessaraString::GetText", NEVER, [](Scene& s) { return s.longText->GetText()[0] != '\0'; }},
    {"ITessaraString::GetLength", NEVER, [](Scene& s) { return s.north->GetLength() == 5; }},
    {"ITessaraString::IsEmpty", NEVER, [](Scene& s) { return s.text->IsEmpty(); }},
    {"ITessaraString::CompareText", NEVER, [](Scene& s) { return s.column->CompareText("Q") == -1; }},
    {"ITessaraString::Compare", NEVER, [](Scene& s) { return s.column->Compare(s.row.Get()) == -1; }},
    {"ITessaraString::CompareTextNoCase", NEVER,
     [](Scene& s) { return s.column->CompareTextNoCase("p") == 0; }},
    {"ITessaraString::CompareNoCase", NEVER,
     [](Scene& s) { return s.column->CompareNoCase(s.row.Get()) == -1; }},
    {"ITessaraString::Clear", NEVER, [](Scene& s) { return s.longText->Clear(), s.longText->IsEmpty(); }},

    {"IClassFactory::CreateInstance", TOLD, [](Scene& s) { return Creates(s, CLSID_Coord); }},
    {"IClassFactory::CreateInstance of a singleton", TOLD,
     [](Scene& s) { return Creates(s, CLSID_ZoneCoordOperations); }},
    {"IClassFactory::LockServer", NEVER,
     [](Scene&) { return FactoryOf(CLSID_Coord)->LockServer(1) == RESULT_FALSE; }},
    {"ITypeInfoDesc::GetClassId", NEVER,
     [](Scene&) { return *CoordFactory<ITypeInfoDesc>()->GetClassId() == CLSID_Coord; }},
    {"ITypeInfoDesc::GetClassName", NEVER,
     [](Scene&) { return CoordFactory<ITypeInfoDesc>()->GetClassName() != nullptr; }},
    {"ITerminator::Terminate", NEVER, [](Scene&) { return CoordFactory<ITerminator>()->Terminate(), true; }},

    // What allocates here is the host's manager, whose results don't count.
    {"ITessaraComponent::Initialize", TOLD, [](Scene& s) { return Component(s)->Initialize(); },
     "a class that the manager can't keep"},
    {"ITessaraComponent::Terminate", NEVER, [](Scene& s) { return Component(s)->Terminate(); }},
    {"ITessaraComponent::EnumerateClasses", NEVER,
     [](Scene& s) {
         ClassCounter counter;
         return Component(s)->EnumerateClasses(&counter) && counter.count > 0;
     }},
    {"ITessaraComponent::QueryFlag", NEVER, [](Scene& s) { return !Component(s)->QueryFlag(); }},
    {"ITessaraComponentInit::InitParameterA", NEVER,
     [](Scene& s) { return IRef<ITessaraComponentInit>(Component(s))->InitParameterA(nullptr) == 0; }},
    {"ITessaraComponentInit::InitParameterB", NEVER,
     [](Scene& s) { return IRef<ITessaraComponentInit>(Component(s))->InitParameterB(nullptr) == 0; }},
};

}  // namespace

OperationTable FrameOperations() {
    return FRAME_OPERATIONS;
}

}  // namespace tessara::testing
