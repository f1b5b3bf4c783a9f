// A host that doesn't link the library: it loads the file named on its command line, passes it an object
// manager, and creates objects by their class ids. It needs the headers only.
#include <dlfcn.h>

#include <iostream>

#include "tessara/tessara.h"

template <class Interface>
tessara::IRef<Interface> Make(tessara::IObjectManager* manager, const tessara::GUID& classId) {
    void* made = nullptr;
    manager->CreateInstance(&classId, &tessara::IidOf<Interface>, &made);
    tessara::IRef<Interface> object;
    *object.ReleaseAndGetAddress() = static_cast<Interface*>(made);
    return object;
}

// Converts the UTM coordinates of the old observatory in Berne to Swiss coordinates.
bool WriteBerne(tessara::IObjectManager* manager) {
    const auto utm = Make<tessara::ICoordinateReference>(manager, tessara::CLSID_CoordinateReference);
    const auto swiss = Make<tessara::ICoordinateReference>(manager, tessara::CLSID_CoordinateReference);
    const auto coord = Make<tessara::ICoord>(manager, tessara::CLSID_Coord);
    const auto strings = Make<tessara::ICoordinateString>(manager, tessara::CLSID_CoordinateString);
    if (!utm.IsValid() || !swiss.IsValid() || !coord.IsValid() || !strings.IsValid()) return false;
    utm->SetDatum(tessara::DATUM_WGS84);
    utm->SetSystem(tessara::KOORD_UTM);
    constexpr std::int32_t DATUM_CH1903 = 7;
    swiss->SetDatum(DATUM_CH1903);
    swiss->SetSystem(tessara::KOORD_CH);

    const tessara::IRef<tessara::ITessaraString> north(tessara::NewObject<tessara::host::Text>()),
        east(tessara::NewObject<tessara::host::Text>());
    north->AssignText("N 5200911");
    east->AssignText("32 381188");
    if (!strings->ParseCoord(utm, north, east) || !strings->GetCoord(coord) || !coord->SetReference(swiss) ||
        !strings->SetCoord(coord))
        return false;
    strings->SetNorthPrecision(1.0);
    strings->SetEastPrecision(1.0);
    strings->GetNorthText(north);
    strings->GetEastText(east);
    std::cout << east->GetText() << ' ' << north->GetText() << '\n';
    return true;
}

int main(int argc, char** argv) {
    void* const library = dlopen(argc > 1 ? argv[1] : "libtessara.so.1", RTLD_NOW);
    if (library == nullptr) return 1;
    const auto createArray =
        reinterpret_cast<decltype(&tessara::CreateClassArray)>(dlsym(library, "CreateClassArray"));
    const auto getComponent =
        reinterpret_cast<decltype(&tessara::GetTessaraComponent)>(dlsym(library, "GetTessaraComponent"));

    bool isWritten = false;
    {
        const tessara::IRef<tessara::IObjectManager> manager(
            tessara::NewObject<tessara::host::ObjectManager>(createArray));
        tessara::ITessaraComponent* component = nullptr;
        getComponent(manager, &component);
        component->Initialize();
        isWritten = WriteBerne(manager);
        component->Terminate();
        getComponent(nullptr, &component);
    }
    dlclose(library);
    return isWritten ? 0 : 1;
}
