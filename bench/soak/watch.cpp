#include "bench/soak/watch.h"

#include "bench/campaign/blind.h"
#include "game/galaxy.h"
#include "game/hull.h"
#include "game/laser.h"
#include "game/reactor.h"
#include "game/shield.h"
#include "game/starship.h"
#include "game/tank.h"
#include "game/torpedo.h"
#include "main/exception.h"

#include <SDL_mixer.h>
#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

constexpr std::size_t object_limit = 1000;
constexpr int all_channels = -1;
constexpr float direction_slack = 0.001F;  // how far from 1 the length of a direction may be

// How much more than before a level may hold when it begins: what still burns then is not always
// the same, and a display takes its picture's texture when it first shows one.
constexpr std::size_t heap_slack = 16 * 1024;
constexpr std::size_t resident_slack = 1024 * 1024;
constexpr std::size_t names_slack = 4;

/// What the game says in the course of things, by how it begins.
constexpr const char* expected_lines[] = {
    // Deeds that the story does not ask for, such as a landing in the middle of a fight.
    "WARNING (GAME): StoryTeller: no transition for ",
    // The page keys while the view stays where a ship or a torpedo has burst.
    "ERROR (GAME): CameraManagement::changeCamera: current_obj not in list (very strange)",
    // One sound more than there are channels.
    "ERROR (AUDIO): SoundFactory::playPanoramaSound: ",
};

bool isFinite(const Point4& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

bool isFinite(const Vector4& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

bool isDirection(const Vector4& v) {
    return isFinite(v) && std::abs(v.getLength() - 1) < direction_slack;
}

bool isIntact(const _3D_Rep& part) {
    if (!std::isfinite(part.getIntegrity())) return false;
    for (unsigned int i = 0; i < part.getNumSlots(); ++i) {
        const _3D_Rep* item = part.getSlot(static_cast<int>(i)).item;
        if (item && !isIntact(*item)) return false;
    }
    return true;
}

/// What is wrong with a ship, empty if nothing.
std::string findFault(const Starship& ship) {
    const float charge = ship.getReactor()->getBatCharge(), fuel = ship.getTank()->getFuel();
    if (!isIntact(*ship.getHull())) return "integrity";
    if (!(charge >= 0 && charge <= static_cast<float>(ship.getReactor()->getBatSize())))
        return "charge " + std::to_string(charge);
    if (!(fuel >= 0 && fuel <= ship.getTank()->getCapacity()))
        return "fuel " + std::to_string(fuel);
    if (ship.getShield() && !std::isfinite(ship.getShield()->getCurrentEnergy())) return "shield";
    return "";
}

std::string findFault(_GameObject& object) {
    if (!isFinite(object.getPosition())) return "position";
    if (!isDirection(object.getOrientation())) return "orientation";
    if (!isFinite(object.getUp())) return "up vector";
    if (!std::isfinite(object.getSize())) return "size";
    if (const auto* moving = dynamic_cast<const _MovingGameObject*>(&object)) {
        if (!isDirection(moving->getHeading())) return "heading";
        if (!std::isfinite(moving->getVelocity())) return "velocity";
    }
    if (auto* laser = dynamic_cast<Laser*>(&object); laser && !std::isfinite(laser->getEnergy()))
        return "energy";
    if (auto* torpedo = dynamic_cast<Torpedo*>(&object);
        torpedo && !std::isfinite(torpedo->getEnergy()))
        return "energy";
    if (const auto* ship = dynamic_cast<const Starship*>(&object)) return findFault(*ship);
    return "";
}

void compare(const char* what, std::size_t level, std::size_t now, std::size_t allowed) {
    if (now <= allowed) return;
    std::ostringstream text;
    text << what << " at the start of level " << level + 1 << ": " << now << ", expected at most "
         << allowed;
    throw Exception(text.str());
}

bool isExpected(const std::string& line) {
    return std::ranges::any_of(expected_lines,
                               [&](const char* start) { return line.starts_with(start); });
}

}  // namespace

Watch::Watch() : terminal(dup(STDERR_FILENO)), error_file(tmpfile()) {
    if (!error_file) throw Exception("no temporary file for standard error");
    dup2(fileno(error_file), STDERR_FILENO);
}

Watch::~Watch() {
    dup2(terminal, STDERR_FILENO);
    close(terminal);
    fclose(error_file);
}

Holdings Watch::takeStock() {
    const struct mallinfo2 heap = mallinfo2();
    std::size_t pages = 0, resident_pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident_pages;
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return {heap.uordblks + heap.hblkhd,
            resident_pages * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)),
            std::distance(begin(files), end(files)), blind::countNames()};
}

void Watch::checkObjects(const Galaxy& galaxy) {
    for (const auto& [id, slot] : galaxy.getObjects()) {
        if (!*slot) continue;
        const std::string fault = findFault(**slot);
        if (fault.empty()) continue;
        std::ostringstream text;
        text << "object " << std::hex << id << " (" << (*slot)->getName() << "): " << fault;
        throw Exception(text.str());
    }
}

void Watch::checkNumbers(const Galaxy& galaxy) {
    most_objects = std::max(most_objects, galaxy.getObjects().size());
    most_channels = std::max(most_channels, Mix_Playing(all_channels));
    if (most_objects > object_limit)
        throw Exception("more than " + std::to_string(object_limit) + " objects in a galaxy");
}

void Watch::checkChannels(int expected) const {
    const int playing = Mix_Playing(all_channels);
    if (playing != expected)
        throw Exception(std::to_string(playing) + " channels play when all sounds are over, not " +
                        std::to_string(expected));
}

void Watch::checkHoldings(std::size_t level, bool warm) {
    const Holdings now = takeStock();
    latest[level] = now;
    Holdings& most = allowance[level];
    if (warm) {
        most = {std::max(most.heap, now.heap), std::max(most.resident, now.resident),
                std::max(most.files, now.files), std::max(most.names, now.names)};
        return;
    }
    const auto count = [](long n) { return static_cast<std::size_t>(n); };
    compare("bytes of the heap", level, now.heap, most.heap + heap_slack);
    compare("resident bytes", level, now.resident, most.resident + resident_slack);
    compare("open files", level, count(now.files), count(most.files));
    compare("display lists and textures", level, count(now.names), count(most.names) + names_slack);
}

void Watch::checkErrorLines() {
    char text[4096];
    off_t place = 0;
    for (ssize_t got; (got = pread(fileno(error_file), text, sizeof text, place)) > 0; place += got)
        begun.append(text, static_cast<std::size_t>(got));
    if (place == 0) return;
    if (ftruncate(fileno(error_file), 0) != 0 || lseek(STDERR_FILENO, 0, SEEK_SET) != 0)
        throw Exception("cannot empty the file for standard error");

    for (std::size_t end; (end = begun.find('\n')) != std::string::npos; begun.erase(0, end + 1)) {
        const std::string line = begun.substr(0, end);
        if (!isExpected(line)) throw Exception("unexpected on standard error: " + line);
        ++error_lines[line];
    }
}
