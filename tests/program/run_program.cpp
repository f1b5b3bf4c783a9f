#include "program/run_program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <sstream>

extern char** environ;

namespace tessara::testing {
namespace {

// A file without a name, which a program can fill without a concurrent reader.
class ScratchFile {
  public:
    ScratchFile() : file_(std::tmpfile(), &std::fclose) {}

    [[nodiscard]] int Descriptor() const { return fileno(file_.get()); }

    void Write(const std::string& text) const {
        std::fwrite(text.data(), 1, text.size(), file_.get());
        std::rewind(file_.get());
    }

    [[nodiscard]] std::string Read() const {
        std::rewind(file_.get());
        std::string text;
        char buffer[4096];
        for (std::size_t n = 0; (n = std::fread(buffer, 1, sizeof buffer, file_.get())) > 0;)
            text.append(buffer, n);
        return text;
    }

  private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// This process's variables, but for those that have a new value.
std::vector<std::string> Environment(std::vector<std::string> variables) {
    const std::vector<std::string> changed = variables;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string variable = *entry;
        const std::string name = variable.substr(0, variable.find('=') + 1);
        const bool isChanged = std::any_of(changed.begin(), changed.end(), [&name](const std::string& other) {
            return other.starts_with(name);
        });
        if (!isChanged) variables.push_back(variable);
    }
    return variables;
}

}  // namespace

Outcome RunProgram(const std::string& path, const std::vector<std::string>& arguments,
                   const RunOptions& options) {
    const ScratchFile in;
    const ScratchFile out;
    const ScratchFile err;
    in.Write(options.input);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in.Descriptor(), STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out.Descriptor(), STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, err.Descriptor(), STDERR_FILENO);
    if (!options.outFile.empty())
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, options.outFile.c_str(), O_WRONLY, 0);

    std::vector<std::string> words{path};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> environment = Environment(options.environment);
    pid_t child = 0;
    const int error = posix_spawn(&child, path.c_str(), &actions, nullptr, Pointers(words).data(),
                                  Pointers(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) {
        ADD_FAILURE() << "can't start " << path;
        return {};
    }
    int state = 0;
    waitpid(child, &state, 0);
    return {out.Read(), err.Read(), WIFEXITED(state) ? WEXITSTATUS(state) : -1};
}

Outcome Tessara(const std::vector<std::string>& arguments, const std::string& input) {
    return RunProgram(TESSARA_PROGRAM, arguments, {input, {}, {}});
}

Outcome Convert(std::vector<std::string> arguments, const std::string& input) {
    arguments.insert(arguments.begin(), "convert");
    return Tessara(arguments, input);
}

void ExpectDone(const Outcome& outcome, const std::string& out) {
    EXPECT_EQ(outcome.out, out);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.status, 0);
}

void ExpectUsageError(const Outcome& outcome, const std::string& words) {
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_NE(outcome.err.find(words), std::string::npos) << outcome.err;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

}  // namespace tessara::testing
