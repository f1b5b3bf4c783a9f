// Arguments that several commands share. An invalid value is a usage error.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "commands/command.h"
#include "conversion/references.h"
#include "files/number_lines.h"
#include "files/record_conversion.h"
#include "run/exit_code.h"
#include "run/toolkit_names.h"
#include "typed/typed_reader.h"

namespace tessara::program {

// Adds an option for the name of a datum.
Option AddDatum(Command command, const std::string& option, std::string& name,
                const std::string& description);

// Joins the names of a choice as the help shows them.
[[nodiscard]] std::string NamesOf(const std::vector<std::string>& choices);

// Adds an option for one of some names.
template <class Text>
Option AddChoice(Command command, const std::string& option, Text& choice,
                 const std::vector<std::string>& choices, const std::string& description) {
    return command.Add(option, choice, description).OneOf(choices).Type(NamesOf(choices));
}

// --on-error, --rejects and --jobs of the commands that read files.
struct FileOptions {
    std::string onError = "skip";
    std::optional<std::string> rejects;
    unsigned jobs = 1;

    [[nodiscard]] OnError WhatOnError() const;
};
void AddFileOptions(Command command, FileOptions& options, const std::string& group);

// The positions and numbers of a computation, from the command line or from the lines of --file.
struct NumberArguments {
    std::vector<std::string> words;
    std::vector<std::string> files;
    std::string datum = "WGS84";
    bool isJson = false;
    FileOptions lines;
    std::vector<double> numbers;  // of the words
};
void AddNumbers(Command command, NumberArguments& arguments, const std::string& names,
                const std::string& description);

// Reads the words; an error is a usage error.
void ReadNumbers(const Command& command, const NumberInput& input, NumberArguments* arguments);
[[nodiscard]] ExitCode Compute(const NumberArguments& arguments, const NumberInput& input,
                               const ComputeNumbers& compute);

// The reference of typed positions: SYSTEM[:PARAMETERS][@DATUM], or auto[@DATUM] for any system.
[[nodiscard]] std::optional<Reference> TypedReferenceByName(const std::string& name,
                                                            std::int32_t defaultDatum);
[[nodiscard]] std::string WrongTypedReference(const std::string& name);

// Adds --order: which of two bare numbers in one text comes first.
Option AddOrder(Command command, Order& order);

}  // namespace tessara::program
