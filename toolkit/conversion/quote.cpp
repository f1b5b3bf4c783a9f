#include "conversion/quote.h"

namespace tessara::toolkit {

std::string Quote(std::string_view word) {
    std::string shown(word.substr(0, LONGEST_QUOTE));
    for (char& c : shown) {
        if (c < ' ' || c > '~') c = '?';
    }
    return "'" + shown + (word.size() > LONGEST_QUOTE ? "...'" : "'");
}

}  // namespace tessara::toolkit
