#pragma once

#include "tests/support/files.h"

#include <sys/types.h>

#include <chrono>
#include <string>

/// The real program as a process of its own, in a given working directory.
class GameRun {
public:
    explicit GameRun(const std::string& directory);
    ~GameRun() { wait(std::chrono::seconds(0)); }
    GameRun(const GameRun&) = delete;
    GameRun& operator=(const GameRun&) = delete;

    /// Waits for the end and returns the exit status; -1 if the program crashed or had to be
    /// killed after the time allowed.
    int wait(std::chrono::seconds allowed = std::chrono::seconds(60));
    /// Waits until standard output holds the text; false if the program ended or time ran out.
    bool waitForOutput(const std::string& text);

    std::string out() const { return readFile(directory + "/stdout.txt"); }
    std::string err() const { return readFile(directory + "/stderr.txt"); }

private:
    bool hasEnded();

    std::string directory;
    pid_t pid;
    bool ended = false;
    int status = -1;
};
