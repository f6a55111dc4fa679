#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "tests/contract/PortHarness.h"
#include "tests/drivers/TemporaryFolder.h"

namespace stagehopper {

/// The part of a harness that is common to ports on a real system: files and programs in a private
/// folder, which it removes.
class RealFilesHarness : public PortHarness {
public:
    std::filesystem::path temporaryDirectory() override { return directory_; }
    void plantFile(const std::filesystem::path& path, std::string_view contents) override;
    void plantLink(const std::filesystem::path& path, const std::filesystem::path& target) override;
    void plantHardLink(const std::filesystem::path& path,
                       const std::filesystem::path& target) override;
    std::string contentsOf(const std::filesystem::path& path) override;
    void plantExecutable(const std::filesystem::path& path) override;

    std::filesystem::path programThatExits(int status) override;
    std::filesystem::path programThatWrites(std::string_view text) override;
    std::filesystem::path programThatRunsUntilTerminated() override;
    std::filesystem::path notAProgram() override;

private:
    [[nodiscard]] std::filesystem::path makeScript(const std::string& command) const;

    TemporaryFolder folder_;
    std::filesystem::path directory_ = folder_.path();
};

}  // namespace stagehopper
