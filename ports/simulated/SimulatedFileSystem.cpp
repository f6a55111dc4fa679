#include "ports/simulated/SimulatedFileSystem.h"

#include <algorithm>
#include <utility>

namespace stagehopper::simulated {

namespace fs = std::filesystem;

namespace {

constexpr int maxLinks = 40;  // as in a real kernel: ends circular links

bool isInside(const fs::path& path, const fs::path& directory) {
    return std::mismatch(directory.begin(), directory.end(), path.begin(), path.end()).first ==
           directory.end();
}

}  // namespace

SimulatedFileSystem::Entry SimulatedFileSystem::fileWith(std::string_view contents) {
    Entry entry;
    *entry.contents = contents;
    return entry;
}

fs::path SimulatedFileSystem::resolved(const fs::path& path) const {
    fs::path rest = path.lexically_normal();
    for (int followed = 0; followed < maxLinks; ++followed) {
        fs::path walked;
        bool replaced = false;
        for (auto part = rest.begin(); part != rest.end(); ++part) {
            walked /= *part;
            const auto entry = entries_.find(walked);
            if (entry == entries_.end() || entry->second.linkTarget.empty()) continue;
            fs::path next = walked.parent_path() / entry->second.linkTarget;
            for (++part; part != rest.end(); ++part) next /= *part;
            rest = next.lexically_normal();
            replaced = true;
            break;
        }
        if (!replaced) break;
    }
    return rest;
}

bool SimulatedFileSystem::fileExists(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    const auto target = resolved(path);
    const auto entry = entries_.find(target);
    if (entry != entries_.end()) return entry->second.linkTarget.empty();
    return isDirectory(target);
}

bool SimulatedFileSystem::isDirectory(const fs::path& path) const {
    return std::ranges::any_of(entries_,
                               [&path](const auto& other) { return isInside(other.first, path); });
}

bool SimulatedFileSystem::createFile(const fs::path& path, std::string_view contents) {
    std::unique_lock lock(mutex_);
    if (const auto act = std::exchange(beforeNextCreation_, nullptr)) {
        lock.unlock();
        act();
        lock.lock();
    }
    if (!canCreate_) return false;
    return entries_.try_emplace(path, fileWith(contents)).second;
}

bool SimulatedFileSystem::appendToFile(const fs::path& path, std::string_view bytes) {
    const std::lock_guard lock(mutex_);
    const auto entry = entries_.find(path);
    if (entry == entries_.end() || !entry->second.linkTarget.empty() || !entry->second.writable ||
        !entry->second.ownedByUs || entry->second.contents.use_count() != 1) {
        return false;
    }
    *entry->second.contents += bytes;
    return true;
}

fs::path SimulatedFileSystem::resolvingSymlinks(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    return resolved(path);
}

void SimulatedFileSystem::put(const fs::path& path, std::string_view contents) {
    const std::lock_guard lock(mutex_);
    entries_.insert_or_assign(path, fileWith(contents));
}

void SimulatedFileSystem::link(const fs::path& path, const fs::path& target) {
    const std::lock_guard lock(mutex_);
    entries_.insert_or_assign(path, Entry{.linkTarget = target});
}

void SimulatedFileSystem::hardLink(const fs::path& path, const fs::path& target) {
    const std::lock_guard lock(mutex_);
    entries_.insert_or_assign(path, entries_.at(target));
}

void SimulatedFileSystem::giveToAnotherUser(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    entries_.at(path).ownedByUs = false;
}

void SimulatedFileSystem::beforeNextCreation(std::function<void()> act) {
    const std::lock_guard lock(mutex_);
    beforeNextCreation_ = std::move(act);
}

void SimulatedFileSystem::remove(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    entries_.erase(path);
}

bool SimulatedFileSystem::isExecutableFile(const fs::path& path) {
    const std::lock_guard lock(mutex_);
    const auto target = resolved(path);
    const auto entry = entries_.find(target);
    return entry == entries_.end() ? isDirectory(target) : entry->second.executable;
}

void SimulatedFileSystem::setExecutable(const fs::path& path, bool executable) {
    const std::lock_guard lock(mutex_);
    entries_.at(path).executable = executable;
}

void SimulatedFileSystem::setWritable(const fs::path& path, bool writable) {
    const std::lock_guard lock(mutex_);
    entries_.at(path).writable = writable;
}

void SimulatedFileSystem::setCanCreate(bool canCreate) {
    const std::lock_guard lock(mutex_);
    canCreate_ = canCreate;
}

bool SimulatedFileSystem::exists(const fs::path& path) const {
    const std::lock_guard lock(mutex_);
    return entries_.contains(path);
}

std::string SimulatedFileSystem::contents(const fs::path& path) const {
    const std::lock_guard lock(mutex_);
    const auto entry = entries_.find(path);
    return entry == entries_.end() ? std::string{} : *entry->second.contents;
}

}  // namespace stagehopper::simulated
