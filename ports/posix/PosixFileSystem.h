#pragma once

#include "platform/FileSystem.h"

namespace stagehopper::posix {

/// Files by way of the kernel's own calls, whose flags keep the promises of the interface without a
/// gap between looking and acting. Any thread.
class PosixFileSystem final : public platform::FileSystem {
public:
    bool fileExists(const std::filesystem::path& path) override;
    bool isExecutableFile(const std::filesystem::path& path) override;
    bool createFile(const std::filesystem::path& path, std::string_view contents) override;
    bool appendToFile(const std::filesystem::path& path, std::string_view bytes) override;
    std::filesystem::path resolvingSymlinks(const std::filesystem::path& path) override;
};

}  // namespace stagehopper::posix
