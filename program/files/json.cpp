#include "files/json.h"

#include <array>
#include <cstddef>
#include <iterator>
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

// Counts what is read: the parser doesn't tell where it came upon a number that is too large.
template <class Iterator>
class CountingIterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = char;

    CountingIterator(Iterator at, std::size_t* count) : at_(at), count_(count) {}

    char operator*() const { return *at_; }
    CountingIterator& operator++() {
        ++at_;
        ++*count_;
        return *this;
    }
    bool operator==(const CountingIterator& other) const { return at_ == other.at_; }

  private:
    Iterator at_;
    std::size_t* count_;
};

template <class Iterator>
std::string Parse(Iterator begin, Iterator end, const Json::parser_callback_t& take, Json* json) {
    std::size_t count = 0;
    Guard guard;
    const auto takeUnlessTooMuch = [&](int depth, Json::parse_event_t event, Json& parsed) {
        guard.Look(depth, event);
        return !take || take(depth, event, parsed);
    };
    try {
        *json =
            Json::parse(CountingIterator(begin, &count), CountingIterator(end, &count), takeUnlessTooMuch);
        return {};
    } catch (const Json::parse_error& error) {
        return "is no JSON at byte " + std::to_string(error.byte);
    } catch (const Json::exception&) {
        return "has a number that is too large, before byte " + std::to_string(count);
    } catch (const std::length_error& error) {
        return error.what();
    } catch (const std::ios_base::failure&) {
        return "can't be read to its end";
    }
}

}  // namespace

std::string ParseJson(const std::string& text, Json* json) {
    return Parse(text.begin(), text.end(), nullptr, json);
}

std::string ParseJson(std::istream& stream, const Json::parser_callback_t& take, Json* json) {
    using Iterator = std::istreambuf_iterator<char>;
    return Parse(Iterator(stream), Iterator(), take, json);
}

void AddMember(std::string name, Json value, Json* object) {
    object->get_ref<Json::object_t&>().emplace_back(std::move(name), std::move(value));
}

std::string Dump(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace tessara::program
