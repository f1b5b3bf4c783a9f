#include "json.h"

#include <array>
#include <stdexcept>
#include <utility>

namespace tessara::program {
namespace {

// Values are copied and written by recursion, which the stack has to hold.
constexpr int DEEPEST_NESTING = 200;

// The parser looks for each member among all before it.
constexpr std::size_t MOST_MEMBERS = 10000;

// Ends the parsing of what would take too much.
class Guard {
  public:
    void Look(int depth, Json::parse_event_t event) {
        if (depth > DEEPEST_NESTING) throw std::length_error("is nested too deeply");
        const auto level = static_cast<std::size_t>(depth);
        if (event == Json::parse_event_t::object_start) members_[level + 1] = 0;
        if (event == Json::parse_event_t::key && ++members_[level] > MOST_MEMBERS)
            throw std::length_error("has more than " + std::to_string(MOST_MEMBERS) + " members");
    }

  private:
    std::array<std::size_t, DEEPEST_NESTING + 2> members_{};  // of the object that is open at each depth
};

template <class Input>
std::string Parse(Input&& input, const Json::parser_callback_t& take, Json* json) {
    Guard guard;
    const auto takeUnlessTooMuch = [&](int depth, Json::parse_event_t event, Json& parsed) {
        guard.Look(depth, event);
        return !take || take(depth, event, parsed);
    };
    try {
        *json = Json::parse(std::forward<Input>(input), takeUnlessTooMuch);
        return {};
    } catch (const Json::parse_error& error) {
        return "is no JSON at byte " + std::to_string(error.byte);
    } catch (const Json::exception&) {
        return "has a number that is too large";
    } catch (const std::length_error& error) {
        return error.what();
    } catch (const std::ios_base::failure&) {
        return "can't be read to its end";
    }
}

}  // namespace

std::string ParseJson(const std::string& text, Json* json) {
    return Parse(text, nullptr, json);
}

std::string ParseJson(std::istream& stream, const Json::parser_callback_t& take, Json* json) {
    return Parse(stream, take, json);
}

void AddMember(std::string name, Json value, Json* object) {
    object->get_ref<Json::object_t&>().emplace_back(std::move(name), std::move(value));
}

std::string Dump(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace tessara::program
