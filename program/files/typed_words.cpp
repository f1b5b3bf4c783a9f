#include "files/typed_words.h"

#include "lines/words.h"

namespace tessara::program {

std::vector<std::string> TextsOf(const std::vector<std::string>& words) {
    return words.size() == 2 ? words : std::vector<std::string>{Joined(words)};
}

TypedResult ReadWords(const TypedReader& reader, const std::vector<std::string>& words) {
    const std::vector<std::string> texts = TextsOf(words);
    return texts.size() == 2 ? reader.Read(texts[0], texts[1]) : reader.Read(texts[0]);
}

}  // namespace tessara::program
