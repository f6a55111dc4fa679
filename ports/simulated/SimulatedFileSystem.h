#pragma once

#include <map>
#include <mutex>
#include <string>

#include "platform/FileSystem.h"

namespace stagehopper::simulated {

/// Files in memory. Any thread. Directories are there as soon as something stands in them.
class SimulatedFileSystem final : public platform::FileSystem {
public:
    bool fileExists(const std::filesystem::path& path) override;
    bool isExecutableFile(const std::filesystem::path& path) override;
    bool createFile(const std::filesystem::path& path, std::string_view contents) override;
    bool appendToFile(const std::filesystem::path& path, std::string_view bytes) override;
    std::filesystem::path resolvingSymlinks(const std::filesystem::path& path) override;

    /// What others do with the files.
    void put(const std::filesystem::path& path, std::string_view contents);
    void link(const std::filesystem::path& path, const std::filesystem::path& target);
    void remove(const std::filesystem::path& path);
    void setExecutable(const std::filesystem::path& path, bool executable);
    void setWritable(const std::filesystem::path& path, bool writable);
    /// False: the disk takes no new file.
    void setCanCreate(bool canCreate);

    /// What stands under this very path; a link is not followed.
    [[nodiscard]] bool exists(const std::filesystem::path& path) const;
    [[nodiscard]] std::string contents(const std::filesystem::path& path) const;

private:
    struct Entry {
        std::string contents{};
        bool writable = true;
        bool executable = false;
        /// Empty for an ordinary file.
        std::filesystem::path linkTarget{};
    };

    [[nodiscard]] std::filesystem::path resolved(const std::filesystem::path& path) const;

    mutable std::mutex mutex_;
    std::map<std::filesystem::path, Entry> entries_;
    bool canCreate_ = true;
};

}  // namespace stagehopper::simulated
