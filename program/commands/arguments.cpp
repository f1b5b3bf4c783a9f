#include "commands/arguments.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>

#include "conversion/names.h"
#include "conversion/numbers.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

// In the order of OnError.
constexpr const char* ON_ERROR_NAMES[] = {"skip", "keep", "stop"};

constexpr int MOST_JOBS = 256;

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

void AddOrder(CLI::App& command, Order& order) {
    const std::map<std::string, Order> orders{{"ne", Order::NorthFirst}, {"en", Order::EastFirst}};
    command
        .add_option("--order", order,
                    "Order of two bare numbers in one text; by default the order that gives a position")
        ->transform(CLI::CheckedTransformer(orders, CLI::ignore_case).description(""))
        ->type_name("ne|en");
}

CLI::Option* AddDatum(CLI::App& command, const std::string& option, std::string& name,
                      const std::string& description) {
    return command.add_option(option, name, description)
        ->type_name("DATUM")
        ->capture_default_str()
        ->check(WrongDatum);
}

CLI::Validator IsOneOf(const std::vector<std::string>& choices) {
    return CLI::Validator(CLI::IsMember(choices)).description("");
}

std::string NamesOf(const std::vector<std::string>& choices) {
    std::string names;
    for (const std::string& choice : choices)
        names += (names.empty() ? "" : "|") + choice;
    return names;
}

void AddFileOptions(CLI::App& command, FileOptions& options, const std::string& group) {
    AddChoice(command, "--on-error", options.onError,
              std::vector<std::string>(std::begin(ON_ERROR_NAMES), std::end(ON_ERROR_NAMES)),
              "Action for rejected input, which is always reported: skip it, keep a placeholder for it, or "
              "stop the "
              "conversion")
        ->capture_default_str()
        ->group(group);
    command.add_option("--rejects", options.rejects, "Write rejected records to FILE, unchanged")
        ->type_name("FILE")
        ->group(group);
    command.add_option("--jobs", options.jobs, "Number of cores to use, 1 to " + std::to_string(MOST_JOBS))
        ->type_name("NUMBER")
        ->check(CLI::Range(1, MOST_JOBS).description(""))
        ->group(group);
}

void AddNumbers(CLI::App& command, NumberArguments& arguments, const std::string& names,
                const std::string& description) {
    command.add_option(names, arguments.words, description)->type_name("");
    command
        .add_option(
            "--file", arguments.files,
            "Read lines of these numbers from FILE instead; '-' is standard input. Repeat the option for "
            "more files. The rest of a line is copied to the output")
        ->type_name("FILE")
        ->allow_extra_args(false);
    command.add_flag("--json", arguments.isJson,
                     "Write one JSON object per line, with all digits of the numbers");
    AddFileOptions(command, arguments.lines, "Files");
}

std::string WrongNumbers(const NumberArguments& arguments, const std::vector<NumberColumn>& columns) {
    std::string names;
    for (const NumberColumn& column : columns)
        (names += ' ') += column.name;
    if (!arguments.files.empty())
        return arguments.words.empty() ? "" : "expected numbers on the command line or --file, not both";
    if (arguments.words.size() != columns.size()) {
        return "expected" + names + ", or --file; found " + std::to_string(arguments.words.size()) +
               (arguments.words.size() == 1 ? " value" : " values");
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::string wrong = columns[i].wrong(arguments.words[i]);
        if (!wrong.empty()) return std::string(columns[i].name) + ": " + wrong;
    }
    return {};
}

ExitCode Compute(const NumberArguments& arguments, const NumberComputation& computation) {
    if (!arguments.files.empty()) {
        return ComputeLines({arguments.files, arguments.lines.rejects, arguments.lines.jobs},
                            {computation, arguments.isJson, arguments.lines.WhatOnError()});
    }
    std::vector<double> numbers;
    for (const std::string& word : arguments.words)
        numbers.push_back(*ParseNumber(word));
    return ComputeOnce(computation, numbers, arguments.isJson);
}

}  // namespace tessara::program
