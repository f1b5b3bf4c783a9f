#include "commands/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>

#include "commands/typed_position.h"
#include "conversion/names.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

// In the order of OnError.
constexpr const char* ON_ERROR_NAMES[] = {"skip", "keep", "stop"};

constexpr int MOST_JOBS = 256;

// Reads the words, or returns the error.
std::string WrongNumbers(const NumberInput& input, NumberArguments* arguments) {
    const std::vector<std::string>& words = arguments->words;
    if (!arguments->files.empty())
        return words.empty() ? "" : "expected positions on the command line or --file, not both";
    NumberReading reading = NumberReader(input, *DatumByName(arguments->datum)).Read(words);
    arguments->numbers = std::move(reading.numbers);
    if (reading.IsRead()) return {};
    if (words.empty()) return reading.error + "; --file reads lines";
    if (reading.texts.empty()) return reading.error;
    // The lines below the reason show the piece.
    std::string lines = ExplainFault(reading.position, reading.texts);
    lines.pop_back();
    return reading.error + lines.substr(std::min(lines.find('\n'), lines.size()));
}

// The datum after `auto@`, empty for `auto` alone; nothing for another name.
std::optional<std::string> BehindAuto(const std::string& name) {
    constexpr std::string_view AUTO = "auto";
    std::string word = name.substr(0, AUTO.size());
    for (char& c : word)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const std::string behind = name.substr(word.size());
    if (word != AUTO || !(behind.empty() || behind.front() == '@')) return std::nullopt;
    return behind.empty() ? behind : behind.substr(1);
}

}  // namespace

OnError FileOptions::WhatOnError() const {
    const auto* const found = std::find(std::begin(ON_ERROR_NAMES), std::end(ON_ERROR_NAMES), onError);
    return static_cast<OnError>(found - std::begin(ON_ERROR_NAMES));
}

std::optional<Reference> TypedReferenceByName(const std::string& name, std::int32_t defaultDatum) {
    const std::optional<std::string> datum = BehindAuto(name);
    if (!datum) return ReferenceByName(name, defaultDatum);
    if (datum->empty()) return Reference{.datum = defaultDatum, .system = NO_SYSTEM};
    const std::optional<std::int32_t> number = DatumByName(*datum);
    return number ? std::optional(Reference{.datum = *number, .system = NO_SYSTEM}) : std::nullopt;
}

std::string WrongTypedReference(const std::string& name) {
    const std::optional<std::string> datum = BehindAuto(name);
    if (!datum) return WrongReference(name);
    return datum->empty() ? "" : WrongDatum(*datum);
}

Option AddOrder(Command command, Order& order) {
    const std::map<std::string, Order> orders{{"ne", Order::NorthFirst}, {"en", Order::EastFirst}};
    return Option(
        command.Parser()
            .add_option("--order", order,
                        "Order of two bare numbers in one text; by default the order that gives a position")
            ->transform(CLI::CheckedTransformer(orders, CLI::ignore_case).description(""))
            ->type_name("ne|en"));
}

Option AddDatum(Command command, const std::string& option, std::string& name,
                const std::string& description) {
    return command.Add(option, name, description).Type("DATUM").ShowDefault().CheckedBy(WrongDatum);
}

std::string NamesOf(const std::vector<std::string>& choices) {
    std::string names;
    for (const std::string& choice : choices)
        names += (names.empty() ? "" : "|") + choice;
    return names;
}

void AddFileOptions(Command command, FileOptions& options, const std::string& group) {
    AddChoice(command, "--on-error", options.onError,
              std::vector<std::string>(std::begin(ON_ERROR_NAMES), std::end(ON_ERROR_NAMES)),
              "Action for rejected input, which is always reported: skip it, keep a placeholder for it, or "
              "stop the "
              "conversion")
        .ShowDefault()
        .Group(group);
    command.Add("--rejects", options.rejects, "Write rejected records to FILE, unchanged")
        .Type("FILE")
        .Group(group);
    command.Add("--jobs", options.jobs, "Number of cores to use, 1 to " + std::to_string(MOST_JOBS))
        .Type("NUMBER")
        .Within(1, MOST_JOBS)
        .Group(group);
}

void AddNumbers(Command command, NumberArguments& arguments, const std::string& names,
                const std::string& description) {
    command.Add(names, arguments.words, description).Type("");
    command
        .Add("--file", arguments.files,
             "Read lines of the same from FILE instead; '-' is standard input. Repeat the option for more "
             "files. The rest of a line is copied to the output")
        .Type("FILE")
        .OneValueEach();
    AddDatum(command, "--datum", arguments.datum, "Datum of all positions");
    command.AddFlag("--json", arguments.isJson,
                    "Write one JSON object per line, with all digits of the numbers");
    AddFileOptions(command, arguments.lines, "Files");
}

void ReadNumbers(const Command& command, const NumberInput& input, NumberArguments* arguments) {
    const std::string wrong = WrongNumbers(input, arguments);
    if (!wrong.empty()) command.Refuse(wrong);
}

ExitCode Compute(const NumberArguments& arguments, const NumberInput& input, const ComputeNumbers& compute) {
    const std::string& datum = arguments.datum;
    const NumberComputation computation{input, *DatumByName(datum), {{"datum", datum, 0}}, compute};
    if (!arguments.files.empty()) {
        return ComputeLines({arguments.files, arguments.lines.rejects, arguments.lines.jobs},
                            {computation, arguments.isJson, arguments.lines.WhatOnError()});
    }
    return ComputeOnce(computation, arguments.numbers, arguments.isJson);
}

}  // namespace tessara::program
