#include "support/shared_library.h"

#include <gtest/gtest.h>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace tessara::testing {

#if defined(_WIN32)

SharedLibrary::SharedLibrary(const std::string& path) : handle_(LoadLibraryA(path.c_str())) {
    EXPECT_NE(handle_, nullptr) << path << ": error " << GetLastError();
}

SharedLibrary::~SharedLibrary() {
    EXPECT_NE(FreeLibrary(static_cast<HMODULE>(handle_)), 0);
}

SharedLibrary::Address SharedLibrary::FindAddress(const std::string& name) const {
    const FARPROC address = GetProcAddress(static_cast<HMODULE>(handle_), name.c_str());
    EXPECT_NE(address, nullptr) << name;
    return reinterpret_cast<Address>(address);
}

bool SharedLibrary::IsLoaded(const std::string& path) {
    return GetModuleHandleA(path.c_str()) != nullptr;
}

#else

SharedLibrary::SharedLibrary(const std::string& path) : handle_(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    EXPECT_NE(handle_, nullptr) << dlerror();
}

SharedLibrary::~SharedLibrary() {
    EXPECT_EQ(dlclose(handle_), 0);
}

SharedLibrary::Address SharedLibrary::FindAddress(const std::string& name) const {
    void* const address = dlsym(handle_, name.c_str());
    EXPECT_NE(address, nullptr) << name;
    return reinterpret_cast<Address>(address);
}

bool SharedLibrary::IsLoaded(const std::string& path) {
    void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) dlclose(handle);
    return handle != nullptr;
}

#endif

}  // namespace tessara::testing
