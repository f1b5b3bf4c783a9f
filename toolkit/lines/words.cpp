#include "lines/words.h"

#include <algorithm>

namespace tessara::toolkit {

std::string_view TrimBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(BLANKS) + 1));
    return text;
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

}  // namespace tessara::toolkit
