#include "tests/support/game_run.h"

#include "tests/support/eventually.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

GameRun::GameRun(const std::string& directory) : directory(directory), pid(fork()) {
    if (pid != 0) return;
    const std::string command =
        "cd '" + directory + "' && exec '" TARVEX_PROGRAM "' >stdout.txt 2>stderr.txt";
    execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    _exit(127);
}

bool GameRun::hasEnded() {
    int raw = 0;
    if (ended || waitpid(pid, &raw, WNOHANG) == 0) return ended;
    if (WIFEXITED(raw)) status = WEXITSTATUS(raw);
    return ended = true;
}

int GameRun::wait(std::chrono::seconds allowed) {
    if (!eventually([this] { return hasEnded(); }, allowed)) {
        kill(pid, SIGKILL);
        waitpid(pid, nullptr, 0);
        ended = true;
    }
    return status;
}

bool GameRun::waitForOutput(const std::string& text) {
    const auto found = [&] { return out().find(text) != std::string::npos; };
    eventually([&] { return found() || hasEnded(); });
    return found();
}
