#include "parse_json.h"

#include <stdexcept>

namespace tessara::program {
namespace {

// Values are copied and written by recursion, which the stack has to hold.
constexpr int DEEPEST_NESTING = 200;

template <class Input>
std::string Parse(Input&& input, const Json::parser_callback_t& take, Json* json) {
    const auto takeUnlessTooDeep = [&take](int depth, Json::parse_event_t event, Json& parsed) {
        if (depth > DEEPEST_NESTING) throw std::length_error("is nested too deeply");
        return !take || take(depth, event, parsed);
    };
    try {
        *json = Json::parse(std::forward<Input>(input), takeUnlessTooDeep);
        return {};
    } catch (const Json::parse_error& error) {
        return "is no JSON at byte " + std::to_string(error.byte);
    } catch (const Json::exception&) {
        return "has a number that is too large";
    } catch (const std::length_error& error) {
        return error.what();
    }
}

}  // namespace

std::string ParseJson(const std::string& text, Json* json) {
    return Parse(text, nullptr, json);
}

std::string ParseJson(std::istream& stream, const Json::parser_callback_t& take, Json* json) {
    return Parse(stream, take, json);
}

}  // namespace tessara::program
