// Runs a command of the program on a file of any bytes: options are drawn from the first bytes, the rest is
// the file. Each run ends with a documented exit status and writes what its format allows, whatever the sizes
// of the pieces in which the file arrives.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "commands/commands.h"
#include "drawing/map_page.h"
#include "fuzz/byte_reader.h"
#include "map/json_reader.h"
#include "map/map_around.h"

namespace tessara::fuzz {
namespace {

using Words = std::vector<std::string>;

constexpr const char* FORMATS[] = {"", "lines", "csv", "tsv", "jsonl", "geojson"};
constexpr const char* TARGETS[] = {"",     "UTM",    "UTMREF",    "GK@GER", "CH@CH1903",
                                   "ECEF", "GEODEZ", "GEOREF",    "UTM:@",  "TM:k=0.5,lon0=9",
                                   "BNG",  "UPS",    "GEOGRADMIN"};
constexpr const char* SOURCES[] = {"",   "auto", "GER", "UTM", "UTMREF", "GEODEZ@GER", "GK-AT:meridian=31",
                                   "BMN"};
constexpr const char* COLUMNS[] = {"", "2,3", "north,east", "1", "lat,lon,height", "text", "99,1", "a,a"};
constexpr const char* FLAGS[] = {"",
                                 "--with=convergence,scale",
                                 "--display",
                                 "--zone=33",
                                 "--precision=10m",
                                 "--order=en",
                                 "--verbose",
                                 "--json",
                                 "--north-precision=0.001",
                                 "--truncate"};
constexpr const char* ON_ERROR[] = {"", "skip", "keep", "stop"};

// The file as it comes through a pipe, some bytes at a time.
class Pieces final : public std::streambuf {
  public:
    Pieces(std::string text, std::size_t size) : text_(std::move(text)), size_(size) {}

  protected:
    int_type underflow() override {
        if (next_ == text_.size()) return traits_type::eof();
        const std::size_t count = std::min(size_, text_.size() - next_);
        char* const begin = text_.data() + next_;
        setg(begin, begin, begin + count);
        next_ += count;
        return traits_type::to_int_type(*begin);
    }

  private:
    std::string text_;
    std::size_t size_;
    std::size_t next_ = 0;
};

// Replaces the buffer of a stream as long as it lives.
class Redirection {
  public:
    Redirection(std::ios& stream, std::streambuf* buffer) : stream_(stream), before_(stream.rdbuf(buffer)) {}
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;
    ~Redirection() { stream_.rdbuf(before_); }

  private:
    std::ios& stream_;
    std::streambuf* before_;
};

// The action of a command line, or nothing if the program refuses its arguments. Parsing takes far longer
// than a small file, and most inputs differ in the file alone.
const program::Action& ActionOf(const Words& arguments) {
    constexpr std::size_t MOST_ACTIONS = 4000;
    static std::map<Words, program::Action> actions;
    if (actions.size() == MOST_ACTIONS) actions.clear();
    const auto [place, isNew] = actions.try_emplace(arguments);
    if (!isNew) return place->second;
    CLI::App parser("", "tessara");
    parser.require_subcommand(1);
    program::AddConvert(parser, place->second);
    program::AddDistance(parser, place->second);
    program::AddDirect(parser, place->second);
    try {
        parser.parse(Words(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError&) {
        place->second = nullptr;
    }
    return place->second;
}

struct Run {
    int code = 0;
    std::string output;
    std::string messages;
};

Run RunAction(const program::Action& action, std::streambuf* file) {
    std::stringbuf output, messages;
    const Redirection in(std::cin, file), out(std::cout, &output), log(std::cerr, &messages);
    const int code = action();
    return {code, output.str(), messages.str()};
}

void AddOption(ByteReader& bytes, const char* name, const char* value, Words* words) {
    // An option takes any text, too.
    const bool isAnyText = bytes.Below(16) == 0;
    const std::string text = isAnyText ? bytes.Text(20) : value;
    if (!text.empty()) words->push_back(std::string("--") + name + '=' + text);
}

void AddChoice(const char* name, const char* value, Words* words) {
    if (*value != '\0') words->push_back(std::string("--") + name + '=' + value);
}

Words DrawConvert(ByteReader& bytes) {
    Words words{"convert"};
    AddChoice("input", bytes.OneOf(FORMATS), &words);
    AddChoice("output", bytes.OneOf(FORMATS), &words);
    for (int target = 0; target < 2; ++target) {
        const char* const system = bytes.OneOf(TARGETS);
        AddOption(bytes, "to", system, &words);
    }
    // Most sources exclude something.
    const char* const source = bytes.Below(2) == 0 ? "" : bytes.OneOf(SOURCES);
    AddOption(bytes, "from", source, &words);
    const char* const columns = bytes.Below(4) != 0 ? "" : bytes.OneOf(COLUMNS);
    AddOption(bytes, "columns", columns, &words);
    AddChoice("on-error", bytes.OneOf(ON_ERROR), &words);
    for (std::uint32_t count = bytes.Below(3); count > 0; --count) {
        const char* const flag = bytes.OneOf(FLAGS);
        if (*flag != '\0') words.emplace_back(flag);
    }
    return words;
}

Words DrawNumbers(ByteReader& bytes) {
    Words words{bytes.Below(2) == 0 ? "distance" : "direct", "--file=-"};
    if (bytes.Below(2) == 0) words.emplace_back("--json");
    AddOption(bytes, "datum", bytes.Below(2) == 0 ? "" : "GER", &words);
    AddChoice("on-error", bytes.OneOf(ON_ERROR), &words);
    return words;
}

bool Has(const Words& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

void RequireJsonLines(const std::string& text) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        Require(nlohmann::json::accept(line) || line == "*");
}

void RequireFormat(const Words& words, const std::string& output) {
    if (Has(words, "--output=geojson")) Require(output.empty() || nlohmann::json::accept(output));
    if (Has(words, "--output=jsonl")) RequireJsonLines(output);
    if (words.front() != "convert" && Has(words, "--json")) RequireJsonLines(output);
    Require(output.empty() || output.ends_with('\n'));
}

// Notes follow the errors of their block, so that their order depends on the blocks.
std::vector<std::string> SortedLines(const std::string& text) {
    std::vector<std::string> sorted;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        sorted.push_back(line);
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

void RunCommand(const Words& words, const std::string& file, std::size_t pieces) {
    const program::Action& action = ActionOf(words);
    if (!action) return;
    std::stringbuf whole(file);
    const Run run = RunAction(action, &whole);
    Require(run.code == program::EXIT_DONE || run.code == program::EXIT_INCOMPLETE);
    if (run.code == program::EXIT_INCOMPLETE) Require(!run.messages.empty());
    if (run.code == program::EXIT_DONE && !Has(words, "--verbose")) Require(run.messages.empty());
    RequireFormat(words, run.output);
    if (pieces == 0) return;
    Pieces pipe(file, pieces);
    const Run again = RunAction(action, &pipe);
    Require(again.code == run.code && again.output == run.output);
    Require(SortedLines(again.messages) == SortedLines(run.messages));
}

void Preview(const std::string& name, const std::string& file) {
    const auto open = [&file](const std::string& asked) { return toolkit::LayerFile{asked, file, {}}; };
    try {
        const std::string description = toolkit::DescribeMapOf(open(name), name);
        (void)toolkit::DrawMapPage(toolkit::ReadMapDescription(description, open), 100.0);
    } catch (const toolkit::DescriptionError& error) {
        Require(*error.what() != '\0');
    }
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara::fuzz;
    ByteReader bytes(data, size);
    const std::uint32_t command = bytes.Below(16);
    const std::size_t pieces = bytes.Below(4) != 0 ? 0 : 1 + bytes.Below(9);
    if (command == 0) {
        const std::string name = bytes.Below(2) == 0 ? "f.geojson" : "f.txt";
        Preview(name, bytes.Rest());
        return 0;
    }
    const Words words = command < 4 ? DrawNumbers(bytes) : DrawConvert(bytes);
    RunCommand(words, bytes.Rest(), pieces);
    return 0;
}
