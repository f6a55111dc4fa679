#pragma once

#include <filesystem>
#include <string_view>

namespace stagehopper::platform {

/// The few things we do with files. Any thread. No call blocks on what it finds (a pipe, say), and
/// none follows a symbolic link in a path's last component when writing: others may plant links in
/// a shared folder.
class FileSystem {
public:
    virtual ~FileSystem() = default;
    /// Whether something stands under that path, links followed.
    virtual bool fileExists(const std::filesystem::path& path) = 0;
    /// Whether the system lets us execute what stands under that path, links followed: a file that
    /// may be run, but a directory that may be entered, too.
    virtual bool isExecutableFile(const std::filesystem::path& path) = 0;
    /// Creates an ordinary file with `contents` and default permissions. False when anything
    /// stands under that path already or the file cannot be made.
    virtual bool createFile(const std::filesystem::path& path, std::string_view contents) = 0;
    /// Adds `bytes` at the end of an existing ordinary file, in one piece. False when that is not
    /// possible; nothing is created. Only to a file of this user's that has no other name: others
    /// may plant files, too, and second names of ours.
    virtual bool appendToFile(const std::filesystem::path& path, std::string_view bytes) = 0;
    /// The path with every symbolic link resolved as far as its components exist.
    virtual std::filesystem::path resolvingSymlinks(const std::filesystem::path& path) = 0;
};

}  // namespace stagehopper::platform
