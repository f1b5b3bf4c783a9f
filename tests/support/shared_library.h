// Loads a shared library at run time.
#pragma once

#include <string>

namespace tessara::testing {

class SharedLibrary {
  public:
    // Whether the library uses the program's operator new. A library for Windows has its own.
#if defined(_WIN32)
    static constexpr bool ALLOCATES_THROUGH_PROGRAM = false;
#else
    static constexpr bool ALLOCATES_THROUGH_PROGRAM = true;
#endif

    // Loads the library; a failure fails the running test.
    explicit SharedLibrary(const std::string& path);
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary&) = delete;
    SharedLibrary& operator=(const SharedLibrary&) = delete;

    // An exported function by its plain name, e.g. Find<decltype(CreateClassCoord)>("CreateClassCoord").
    template <class Function>
    [[nodiscard]] Function* Find(const std::string& name) const {
        return reinterpret_cast<Function*>(FindAddress(name));
    }

    [[nodiscard]] static bool IsLoaded(const std::string& path);

  private:
    using Address = void (*)();

    [[nodiscard]] Address FindAddress(const std::string& name) const;

    void* handle_;
};

}  // namespace tessara::testing
