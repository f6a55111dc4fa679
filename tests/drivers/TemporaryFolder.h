#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace stagehopper {

/// A new folder. The destructor removes it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        path_ = (std::filesystem::temp_directory_path() / "stagehopper-test-XXXXXX").string();
        if (::mkdtemp(path_.data()) == nullptr) throw std::runtime_error("no temporary folder");
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

}  // namespace stagehopper
