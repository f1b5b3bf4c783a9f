#include "lines/words.h"

#include <algorithm>

namespace tessara::toolkit {

std::string_view TrimBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(BLANKS) + 1));
    return text;
}

std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    for (;;) {
        text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
        if (text.empty()) return words;
        words.emplace_back(text.substr(0, text.find_first_of(BLANKS)));
        text.remove_prefix(words.back().size());
    }
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

}  // namespace tessara::toolkit
