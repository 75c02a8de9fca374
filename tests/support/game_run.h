#pragma once

#include "tests/support/files.h"

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

/// The real program as a process of its own, in a given working directory.
class GameRun {
public:
    /// Starts the program; `display` is empty for the display of the tests.
    explicit GameRun(const std::string& directory, const std::string& display = "");
    ~GameRun();
    GameRun(const GameRun&) = delete;
    GameRun& operator=(const GameRun&) = delete;

    /// Waits for the end and returns the exit status; -1 if the program crashed or had to be
    /// killed after the time allowed.
    int wait(std::chrono::seconds allowed = std::chrono::seconds(60));
    /// Waits until standard output holds the text; false if the program ended or time ran out.
    bool waitForOutput(const std::string& text,
                       std::chrono::seconds allowed = std::chrono::seconds(60));
    bool isRunning();

    std::string out() const { return readFile(out_file); }
    std::string err() const { return readFile(err_file); }

private:
    std::string out_file, err_file;
    pid_t pid;
    bool ended = false;
    int status = -1;
};

/// Runs a command to its end and returns what it wrote to standard output.
std::string runCommand(const std::string& command);
