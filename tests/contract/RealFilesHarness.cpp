#include "tests/contract/RealFilesHarness.h"

#include <fstream>
#include <iterator>

namespace stagehopper {

namespace {

void plantProgram(const std::filesystem::path& path, std::string_view contents) {
    std::ofstream(path, std::ios::binary) << contents;
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

}  // namespace

void RealFilesHarness::plantFile(const std::filesystem::path& path, std::string_view contents) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << contents;
}

void RealFilesHarness::plantLink(const std::filesystem::path& path,
                                 const std::filesystem::path& target) {
    std::filesystem::create_symlink(target, path);
}

void RealFilesHarness::plantHardLink(const std::filesystem::path& path,
                                     const std::filesystem::path& target) {
    std::filesystem::create_hard_link(target, path);
}

std::string RealFilesHarness::contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void RealFilesHarness::plantExecutable(const std::filesystem::path& path) {
    plantProgram(path, "\n");
}

std::filesystem::path RealFilesHarness::programThatExits(int status) {
    return makeScript("exit " + std::to_string(status));
}

std::filesystem::path RealFilesHarness::programThatWrites(std::string_view text) {
    const auto output = directory_ / "output";
    plantFile(output, text);
    return makeScript("exec cat '" + output.string() + "'");
}

std::filesystem::path RealFilesHarness::programThatRunsUntilTerminated() {
    return makeScript("exec sleep 60");
}

std::filesystem::path RealFilesHarness::notAProgram() {
    auto path = directory_ / "no program";
    plantProgram(path, "\x7fno program");
    return path;
}

std::filesystem::path RealFilesHarness::makeScript(const std::string& command) const {
    auto path = directory_ / "program";
    plantProgram(path, "#!/bin/sh\n" + command + '\n');
    return path;
}

}  // namespace stagehopper
