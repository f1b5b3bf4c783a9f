// A host that doesn't link the library: it loads the file named on its command line, lends it an object
// manager, and makes objects by their class ids. It needs the headers only.
#include <dlfcn.h>

#include <iostream>

#include "tessara/host/object_manager.h"
#include "tessara/host/text.h"
#include "tessara/tessara.h"

using namespace tessara;

template <class Interface>
IRef<Interface> Make(IObjectManager* manager, const GUID& classId) {
    void* made = nullptr;
    manager->CreateInstance(&classId, &IidOf<Interface>, &made);
    IRef<Interface> object;
    *object.ReleaseAndGetAddress() = static_cast<Interface*>(made);
    return object;
}

// The Swiss coordinates of the old observatory in Berne, from its UTM coordinates.
bool WriteBerne(IObjectManager* manager) {
    const auto utm = Make<ICoordinateReference>(manager, CLSID_CoordinateReference);
    const auto swiss = Make<ICoordinateReference>(manager, CLSID_CoordinateReference);
    const auto coord = Make<ICoord>(manager, CLSID_Coord);
    const auto strings = Make<ICoordinateString>(manager, CLSID_CoordinateString);
    if (!utm.IsValid() || !swiss.IsValid() || !coord.IsValid() || !strings.IsValid()) return false;
    utm->SetDatum(DATUM_WGS84);
    utm->SetSystem(KOORD_UTM);
    constexpr std::int32_t DATUM_CH1903 = 7;
    swiss->SetDatum(DATUM_CH1903);
    swiss->SetSystem(KOORD_CH);

    const IRef<ITessaraString> north(NewObject<host::Text>()), east(NewObject<host::Text>());
    north->AssignText("N 5200911");
    east->AssignText("32 381188");
    if (!strings->ParseCoord(utm.Get(), north.Get(), east.Get()) || !strings->GetCoord(coord.Get()) ||
        !coord->SetReference(swiss.Get()) || !strings->SetCoord(coord.Get()))
        return false;
    strings->SetNorthPrecision(1.0);
    strings->SetEastPrecision(1.0);
    strings->GetNorthText(north.Get());
    strings->GetEastText(east.Get());
    std::cout << east->GetText() << ' ' << north->GetText() << '\n';
    return true;
}

int main(int argc, char** argv) {
    void* const library = dlopen(argc > 1 ? argv[1] : "libtessara.so.1", RTLD_NOW);
    if (library == nullptr) return 1;
    const auto createArray =
        reinterpret_cast<decltype(&CreateClassArray)>(dlsym(library, "CreateClassArray"));
    const auto getComponent =
        reinterpret_cast<decltype(&GetTessaraComponent)>(dlsym(library, "GetTessaraComponent"));

    bool isWritten = false;
    {
        const IRef<IObjectManager> manager(NewObject<host::ObjectManager>(createArray));
        ITessaraComponent* component = nullptr;
        getComponent(manager.Get(), &component);
        component->Initialize();
        isWritten = WriteBerne(manager.Get());
        component->Terminate();
        getComponent(nullptr, &component);
    }
    dlclose(library);
    return isWritten ? 0 : 1;
}
