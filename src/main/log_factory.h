#pragma once

#include <fstream>
#include <map>
#include <memory>
#include <ostream>
#include <string>

/// Access to the log streams: the standard ones and any number of named log files.
/// Created by the first logged line and kept until the process ends. Never reports a fault of its
/// own: what cannot be written is lost.
class LogFactory {
public:
    static LogFactory* getInstance();

    /// Returns `o` unchanged.
    std::ostream& getStream(std::ostream& o) { return o; }
    /// Returns the file stream of the named log. The first use in a run truncates the file.
    std::ostream& getStream(const std::string& log);

    /// Writes `msg` and a line end to the named log file and flushes it.
    void log(const std::string& log, const std::string& msg);
    /// Writes `msg` and a line end to `out` and flushes it.
    void log(std::ostream& out, const std::string& msg);

    LogFactory(const LogFactory&) = delete;
    LogFactory& operator=(const LogFactory&) = delete;

private:
    LogFactory() = default;

    static LogFactory* instance;
    std::map<std::string, std::unique_ptr<std::ofstream>> logs;
};

/// Writes one log line: the tag and the pieces without separators, a line end, and a flush.
template <typename... Pieces>
void logLine(std::ostream& out, const Pieces&... pieces) {
    (LogFactory::getInstance()->getStream(out) << ... << pieces) << std::endl;
}
