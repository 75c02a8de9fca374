#include "tests/support/typist.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

Typist::Typist(const std::string& words) : pid(fork()) {
    if (pid != 0) return;
    const std::string script = "sleep 0.4; for w in " + words +
                               R"(; do case $w in
                                  *,*) xdotool mousemove ${w%,*} ${w#*,};;
                                  press) xdotool mousedown 1;;
                                  release) xdotool mouseup 1;;
                                  *) xdotool key $w;; esac; sleep 0.1; done; sleep 0.3;
                                  while xdotool key Escape; do sleep 0.3; done)";
    execl("/bin/sh", "sh", "-c", script.c_str(), nullptr);
    _exit(127);
}

Typist::~Typist() {
    // Only the script: a key that xdotool holds down at this moment still has to come up.
    kill(pid, SIGTERM);
    waitpid(pid, nullptr, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
}
