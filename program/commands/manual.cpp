// tessara manual, tessara completion: generate the man page and the bash completion from the same definitions
// as the help. The help hides both commands, because only the build calls them.
#include <CLI/CLI.hpp>
#include <iostream>
#include <sstream>

#include "commands/commands.h"

namespace tessara::program {
namespace {

constexpr const char* MANUAL_START = R"(.SH NAME
tessara \- coordinate calculations for map and geodata applications
.SH SYNOPSIS
.B tessara
.I COMMAND
.RI [ OPTIONS ]
.RI [ ARGUMENTS ]
.SH DESCRIPTION
.B tessara
converts positions between 21 coordinate systems on 239 geodetic datums, checks typed positions, measures
on the ellipsoid, and draws maps.
.B tessara \fICOMMAND\fB \-\-help
explains a command with examples.
.PP
In SYSTEM[:PARAMETERS][@DATUM],
.B tessara systems
lists the systems and
.B tessara datums
lists the datums. The default datum is WGS84; for a target, it is the datum of the input. Examples of parameters are
TM:lon0=9,lat0=0,k=0.9996,fe=500000,fn=0, VDG:lon0=10,lat0=0, UTM:zone=33, GK:strip=4 and BMN:meridian=34. MGRS is
another name of UTMREF.
.SH OPTIONS
.TP
.BR \-h ", " \-\-help
Shows the help of the program or of a command.
.TP
.B \-\-version
Shows the version.
.SH COMMANDS
)";

constexpr const char* MANUAL_END = R"(.SH EXIT STATUS
.TP
.B 0
Success.
.TP
.B 1
Some input was rejected or could not be read, or the output could not be written; standard error has the details.
.TP
.B 2
Usage error; the command did nothing.
.SH SEE ALSO
.BR cs2cs (1),
.BR GeoConvert (1),
.BR rsvg\-convert (1)
)";

// Escapes the characters that troff interprets.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\\') {
            escaped += "\\e";
        } else {
            escaped += c == '-' ? "\\-" : std::string(1, c);
        }
    }
    const bool isRequest = escaped.starts_with('.') || escaped.starts_with('\'');
    return isRequest ? "\\&" + escaped : escaped;
}

// The commands that the help lists.
std::vector<const CLI::App*> CommandsOf(const CLI::App& program) {
    return program.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
}

std::vector<const CLI::Option*> OptionsOf(const CLI::App& command) {
    return command.get_options([](const CLI::Option* option) { return !option->get_positional(); });
}

// The names of an option with their hyphens, the short ones first.
std::vector<std::string> NamesOf(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_snames())
        names.push_back("-" + name);
    for (const std::string& name : option.get_lnames())
        names.push_back("--" + name);
    return names;
}

bool TakesValue(const CLI::Option& option) {
    return !option.get_type_name().empty();
}

void WriteOption(const CLI::Option& option) {
    std::string names;
    for (const std::string& name : NamesOf(option))
        names += (names.empty() ? "" : ", ") + name;
    std::cout << ".TP\n\\fB" << Escaped(names) << "\\fR";
    if (TakesValue(option)) std::cout << " \\fI" << Escaped(option.get_type_name()) << "\\fR";
    std::cout << '\n' << Escaped(option.get_description());
    if (!option.get_default_str().empty())
        std::cout << " (default " << Escaped(option.get_default_str()) << ')';
    std::cout << ".\n";
}

// Writes indented lines as examples, other lines as paragraphs.
void WriteText(const std::string& text) {
    std::istringstream lines(text);
    bool isExample = false;
    for (std::string line; std::getline(lines, line);) {
        const bool begins = line.starts_with("  ");
        if (begins != isExample) std::cout << (begins ? ".EX\n" : ".EE\n");
        isExample = begins;
        std::cout << (line.empty() ? ".PP" : Escaped(line)) << '\n';
    }
    if (isExample) std::cout << ".EE\n";
}

void WriteCommand(const CLI::App& command) {
    std::cout << ".SS tessara " << Escaped(command.get_name());
    for (const CLI::Option* option :
         command.get_options([](const CLI::Option* o) { return o->get_positional(); }))
        std::cout << ' ' << Escaped(option->get_name(true));
    std::cout << '\n' << Escaped(command.get_description()) << ".\n";
    for (const CLI::Option* option : OptionsOf(command)) {
        if (option != command.get_help_ptr()) WriteOption(*option);
    }
    std::cout << ".PP\n";
    WriteText(command.get_footer());
}

ExitCode WriteManual(const CLI::App& program) {
    std::cout << ".TH TESSARA 1 \"\" \"tessara " TESSARA_VERSION "\" \"User Commands\"\n" << MANUAL_START;
    for (const CLI::App* command : CommandsOf(program))
        WriteCommand(*command);
    std::cout << MANUAL_END;
    return EXIT_DONE;
}

constexpr const char* COMPLETION_START =
    R"(# Bash completion of `tessara`. It takes the names of systems and datums from the listings of the program.

_tessara_names() { tessara "$1" 2>/dev/null | awk '{print $2}'; }

# Completes SYSTEM, and SYSTEM@DATUM after the '@'.
_tessara_references() {
    if [[ $1 == *@* ]]; then
        _tessara_names datums | sed "s/^/${1%%@*}@/"
    else
        _tessara_names systems
    fi
}

_tessara() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    # Readline splits words at '@'; join SYSTEM@DATUM again.
    if type _get_comp_words_by_ref &>/dev/null; then
        local cur prev
        _get_comp_words_by_ref -n @ cur prev
        word=$cur before=$prev
    fi

    local choices=
    if ((COMP_CWORD == 1)); then
        choices=")";

constexpr const char* COMPLETION_END = R"(        esac
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
    type __ltrim_colon_completions &>/dev/null && __ltrim_colon_completions "$word"
    [[ ${#COMPREPLY[@]} == 0 && $word != -* ]] && compopt -o default
    return 0
}

complete -F _tessara tessara
)";

// The words that the shell completes for an option; empty to complete file names.
std::string ChoicesOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    std::string names;
    if (type.find("SYSTEM[") != std::string::npos) names += " $(_tessara_references \"$word\")";
    if (type == "DATUM" || type.starts_with("DATUM|")) names += " $(_tessara_names datums)";
    if (type.find("auto[") != std::string::npos) names += " auto";
    if (!names.empty()) return names.substr(1);
    const bool areWords =
        type.find_first_of("|,") != std::string::npos && type.find('[') == std::string::npos;
    std::string words = areWords ? type : "";
    for (char& c : words) {
        if (c == '|' || c == ',') c = ' ';
    }
    return words;
}

ExitCode WriteCompletion(const CLI::App& program) {
    std::cout << COMPLETION_START;
    for (const CLI::App* command : CommandsOf(program))
        std::cout << command->get_name() << ' ';
    std::cout << "--help --version\"\n"
                 "    else\n"
                 "        case \"${COMP_WORDS[1]} $before\" in\n";
    for (const CLI::App* command : CommandsOf(program)) {
        for (const CLI::Option* option : OptionsOf(*command)) {
            const std::string choices = TakesValue(*option) ? ChoicesOf(*option) : "";
            if (choices.empty()) continue;
            std::cout << "        ";
            for (const std::string& name : NamesOf(*option))
                std::cout << (name == NamesOf(*option).front() ? "\"" : " | \"") << command->get_name() << ' '
                          << name << '"';
            std::cout << ") choices=\"" << choices << "\" ;;\n";
        }
    }
    for (const CLI::App* command : CommandsOf(program)) {
        std::cout << "        \"" << command->get_name() << " \"*) [[ $word == -* ]] && choices=\"";
        const char* between = "";
        for (const CLI::Option* option : OptionsOf(*command)) {
            std::cout << between << "--" << option->get_lnames().front();
            between = " ";
        }
        std::cout << "\" ;;\n";
    }
    std::cout << COMPLETION_END;
    return EXIT_DONE;
}

void AddHidden(CLI::App& program, Action& action, const char* name, const char* description,
               ExitCode (*write)(const CLI::App&)) {
    CLI::App* const command = program.add_subcommand(name, description);
    command->group("");
    command->callback([&program, &action, write] { action = [&program, write] { return write(program); }; });
}

}  // namespace

void AddManual(CLI::App& program, Action& action) {
    AddHidden(program, action, "manual", "Writes the man page", WriteManual);
    AddHidden(program, action, "completion", "Writes the bash completion", WriteCompletion);
}

}  // namespace tessara::program
