#include "main/log_factory.h"

LogFactory* LogFactory::instance = nullptr;

LogFactory* LogFactory::getInstance() {
    if (!instance) instance = new LogFactory();
    return instance;
}

std::ostream& LogFactory::getStream(const std::string& log) {
    auto& stream = logs[log];
    if (!stream) stream = std::make_unique<std::ofstream>(log, std::ios::out | std::ios::trunc);
    return *stream;
}

void LogFactory::log(const std::string& log, const std::string& msg) {
    this->log(getStream(log), msg);
}

void LogFactory::log(std::ostream& out, const std::string& msg) {
    out << msg << std::endl;
}
