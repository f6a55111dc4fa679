#pragma once

#include <filesystem>
#include <string_view>

namespace stagehopper::platform {

/// The file operations that we need. Any thread. No call blocks on what it finds (a pipe, for
/// example), and no write follows a symbolic link in a path's last component: other users may plant
/// links in a shared folder.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    /// Whether the path exists. Follows links.
    virtual bool fileExists(const std::filesystem::path& path) = 0;
    /// Whether the system lets us execute the path: true for an executable file and for a directory
    /// that may be entered. Follows links.
    virtual bool isExecutableFile(const std::filesystem::path& path) = 0;
    /// Creates an ordinary file with `contents` and default permissions. False if the path already
    /// exists or the file cannot be created.
    virtual bool createFile(const std::filesystem::path& path, std::string_view contents) = 0;
    /// Appends `bytes` to an existing ordinary file in one write. False if that is impossible;
    /// creates nothing. Refuses a file of another user and a file with a second name: other users
    /// may plant files and hard links to ours.
    virtual bool appendToFile(const std::filesystem::path& path, std::string_view bytes) = 0;
    /// The path with all symbolic links resolved, as far as its components exist.
    virtual std::filesystem::path resolvingSymlinks(const std::filesystem::path& path) = 0;
};

}  // namespace stagehopper::platform
