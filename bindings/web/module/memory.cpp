// The memory that JavaScript fills and reads.
#include <cstdlib>

#include "exports.h"

namespace tessara::web {

std::string& Answer() {
    static std::string answer;
    return answer;
}

// Null if memory runs out.
TESSARA_EXPORT(allocate) void* Allocate(std::size_t size) {
    return std::malloc(size);
}

TESSARA_EXPORT(release) void Release(void* memory) {
    std::free(memory);
}

TESSARA_EXPORT(answer) const char* AnswerText() {
    return Answer().data();
}

TESSARA_EXPORT(answerSize) std::size_t AnswerSize() {
    return Answer().size();
}

}  // namespace tessara::web
