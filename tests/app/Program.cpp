#include "Program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

extern char** environ;

namespace FX_Algen::cli {

namespace {

/// A pipe whose ends no other child inherits.
std::array<int, 2> MakePipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    return ends;
}

}  // namespace

// What is written to a program that is gone is a failed write, not the end of the tests.
Program::Program() : formerSignal_(std::signal(SIGPIPE, SIG_IGN)) {
    const auto in = MakePipe();
    const auto out = MakePipe();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    // The program begins as under any host, not with the signals of the tests.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &signals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    std::string program = FX_ALGEN_PROGRAM;
    std::string command = "automate";
    const std::array<char*, 3> arguments{program.data(), command.data(), nullptr};
    const int failed =
        posix_spawn(&process_, program.c_str(), &actions, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    close(in[0]);
    close(out[1]);
    in_.reset(fdopen(in[1], "w"));
    out_.reset(fdopen(out[0], "r"));
    if (failed != 0) throw std::runtime_error("the program does not start: " + program);
}

Program::~Program() {
    Kill();
    in_.reset();
    std::signal(SIGPIPE, formerSignal_);
}

void Program::Send(const std::string& request) {
    std::fputs((request + "\n").c_str(), in_.get());
    std::fflush(in_.get());
}

std::string Program::Read() {
    std::string line;
    for (int c = std::fgetc(out_.get()); c != EOF; c = std::fgetc(out_.get())) {
        if (c == '\n') return line;
        line += static_cast<char>(c);
    }
    return {};
}

void Program::Kill() {
    if (process_ < 0) return;
    kill(process_, SIGKILL);
    Wait();
}

int Program::Finish() {
    in_.reset();
    return Wait();
}

int Program::Wait() {
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace FX_Algen::cli
