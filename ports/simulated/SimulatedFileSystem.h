#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "platform/FileSystem.h"

namespace stagehopper::simulated {

/// Files in memory. Any thread. A directory exists if it contains something.
class SimulatedFileSystem final : public platform::FileSystem {
public:
    bool fileExists(const std::filesystem::path& path) override;
    bool isExecutableFile(const std::filesystem::path& path) override;
    bool createFile(const std::filesystem::path& path, std::string_view contents) override;
    bool appendToFile(const std::filesystem::path& path, std::string_view bytes) override;
    std::filesystem::path resolvingSymlinks(const std::filesystem::path& path) override;

    /// Other programs' actions on the files.
    void put(const std::filesystem::path& path, std::string_view contents);
    void link(const std::filesystem::path& path, const std::filesystem::path& target);
    /// Adds a second name for the file at `target`. Both names share the file.
    void hardLink(const std::filesystem::path& path, const std::filesystem::path& target);
    /// Gives the file to another user; all users may write to it.
    void giveToAnotherUser(const std::filesystem::path& path);
    void remove(const std::filesystem::path& path);
    void setExecutable(const std::filesystem::path& path, bool executable);
    void setWritable(const std::filesystem::path& path, bool writable);
    /// False: no new file can be created.
    void setCanCreate(bool canCreate);
    /// Called once, between our check of a path and the creation of a file there.
    void beforeNextCreation(std::function<void()> act);

    /// The entry at this path. Does not follow a link.
    [[nodiscard]] bool exists(const std::filesystem::path& path) const;
    [[nodiscard]] std::string contents(const std::filesystem::path& path) const;

private:
    struct Entry {
        /// Shared by the names of one file.
        std::shared_ptr<std::string> contents = std::make_shared<std::string>();
        bool ownedByUs = true;
        bool writable = true;
        bool executable = false;
        /// Empty for an ordinary file.
        std::filesystem::path linkTarget{};
    };

    [[nodiscard]] static Entry fileWith(std::string_view contents);
    [[nodiscard]] bool isDirectory(const std::filesystem::path& path) const;
    [[nodiscard]] std::filesystem::path resolved(const std::filesystem::path& path) const;

    mutable std::mutex mutex_;
    std::map<std::filesystem::path, Entry> entries_;
    bool canCreate_ = true;
    std::function<void()> beforeNextCreation_;
};

}  // namespace stagehopper::simulated
