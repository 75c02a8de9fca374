#include "tests/support/game_run.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <thread>

namespace {

constexpr auto poll_interval = std::chrono::milliseconds(20);

void redirect(int descriptor, const std::string& file) {
    dup2(open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), descriptor);
}

template <typename Condition>
bool waitUntil(std::chrono::seconds allowed, Condition condition) {
    const auto deadline = std::chrono::steady_clock::now() + allowed;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(poll_interval);
    }
    return true;
}

}  // namespace

GameRun::GameRun(const std::string& directory, const std::string& display)
    : out_file(directory + "/stdout.txt"), err_file(directory + "/stderr.txt"), pid(fork()) {
    if (pid != 0) return;
    if (!display.empty()) setenv("DISPLAY", display.c_str(), 1);
    redirect(STDOUT_FILENO, out_file);
    redirect(STDERR_FILENO, err_file);
    if (chdir(directory.c_str()) == 0) execl(TARVEX_PROGRAM, TARVEX_PROGRAM, nullptr);
    _exit(127);
}

GameRun::~GameRun() {
    wait(std::chrono::seconds(0));
}

bool GameRun::isRunning() {
    if (ended) return false;
    int raw = 0;
    if (waitpid(pid, &raw, WNOHANG) == 0) return true;
    ended = true;
    status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return false;
}

int GameRun::wait(std::chrono::seconds allowed) {
    if (!waitUntil(allowed, [this] { return !isRunning(); })) {
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
        ended = true;
    }
    return status;
}

bool GameRun::waitForOutput(const std::string& text, std::chrono::seconds allowed) {
    const auto found = [&] { return out().find(text) != std::string::npos; };
    waitUntil(allowed, [&] { return found() || !isRunning(); });
    return found();
}

std::string runCommand(const std::string& command) {
    std::string output;
    std::array<char, 4096> buffer;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return output;
    while (const size_t n = fread(buffer.data(), 1, buffer.size(), pipe))
        output.append(buffer.data(), n);
    pclose(pipe);
    return output;
}
