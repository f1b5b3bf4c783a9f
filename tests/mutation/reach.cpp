// Notes which blocks of the library a process runs: compiled into a library whose sources have
// -fsanitize-coverage=trace-pc. The byte at the address of a block, relative to the library, becomes 1 in the
// file that TESSARA_REACH names.
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>

extern "C" const char __ehdr_start __attribute__((visibility("hidden")));

namespace {

constexpr std::size_t MOST_BYTES = 1 << 24;

unsigned char* OpenMap() {
    const char* name = std::getenv("TESSARA_REACH");
    const int file = name == nullptr ? -1 : open(name, O_RDWR | O_CREAT, 0600);
    const bool isOpen = file >= 0 && ftruncate(file, MOST_BYTES) == 0;
    const int kind = isOpen ? MAP_SHARED : MAP_PRIVATE | MAP_ANONYMOUS;
    void* map = mmap(nullptr, MOST_BYTES, PROT_READ | PROT_WRITE, kind, isOpen ? file : -1, 0);
    if (map == MAP_FAILED) std::abort();
    return static_cast<unsigned char*>(map);
}

unsigned char* map = nullptr;

}  // namespace

extern "C" void __sanitizer_cov_trace_pc() {
    if (map == nullptr) map = OpenMap();
    const auto place = reinterpret_cast<std::uintptr_t>(__builtin_return_address(0)) -
                       reinterpret_cast<std::uintptr_t>(&__ehdr_start);
    if (place < MOST_BYTES) map[place] = 1;
}
