#include "files/png.h"

#if defined(_WIN32)

namespace tessara::program {

std::string WritePng(const std::string& /*svg*/, const std::string& /*file*/) {
    return "PNG output is not supported on Windows; write an .svg file and convert it";
}

}  // namespace tessara::program

#else

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <memory>

extern char** environ;

namespace tessara::program {
namespace {

constexpr int COMMAND_NOT_FOUND = 127;  // exit status of a child that failed to start the program

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

// The picture in an unnamed temporary file, rewound to its start.
File ScratchFile(const std::string& text) {
    File file(std::tmpfile(), &std::fclose);
    if (!file) return file;
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    if (!isWritten || std::fflush(file.get()) != 0) file.reset();
    if (file) std::rewind(file.get());
    return file;
}

}  // namespace

std::string WritePng(const std::string& svg, const std::string& file) {
    const File in = ScratchFile(svg);
    if (!in) return "cannot write a temporary file";

    std::string words[] = {"rsvg-convert", "--format=png", "--output=" + file};
    char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(in.get()), STDIN_FILENO);
    pid_t child = 0;
    const int error = posix_spawnp(&child, words[0].c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);

    int state = 0;
    if (error == 0) {
        while (waitpid(child, &state, 0) < 0 && errno == EINTR) {
        }
    }
    const int code = WIFEXITED(state) ? WEXITSTATUS(state) : -1;
    if (error != 0 || code == COMMAND_NOT_FOUND)
        return "PNG output requires rsvg-convert, which is not installed (Debian: librsvg2-bin); write an "
               ".svg "
               "file instead";
    return code == 0 ? "" : file + ": rsvg-convert cannot write the file";
}

}  // namespace tessara::program

#endif
