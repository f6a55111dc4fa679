// Part of every sanitized test program: what a sanitizer reports of a program that a test started
// is a failure of that test, however that program ended.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>

namespace stagehopper {
namespace {

class ReportsFailTests final : public testing::EmptyTestEventListener {
public:
    void OnTestProgramStart(const testing::UnitTest& /*tests*/) override {
        std::string name = std::filesystem::temp_directory_path() / "stagehopper-reports-XXXXXX";
        if (mkdtemp(name.data()) == nullptr) std::abort();
        folder_ = name;
        for (const char* options : {"ASAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"}) {
            const char* given = std::getenv(options);
            const auto ours = (given != nullptr ? std::string(given) + ":" : std::string()) +
                              "log_path=" + (folder_ / "report").native();
            setenv(options, ours.c_str(), 1);
        }
    }
    void OnTestEnd(const testing::TestInfo& /*test*/) override { failForReports(); }
    // Of programs that outlived their test.
    void OnTestIterationEnd(const testing::UnitTest& /*tests*/, int /*iteration*/) override {
        failForReports();
    }
    void OnTestProgramEnd(const testing::UnitTest& /*tests*/) override {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

private:
    void failForReports() {
        for (const auto& report : std::filesystem::directory_iterator(folder_)) {
            std::ifstream text(report.path());
            ADD_FAILURE() << "reported by a sanitizer:\n"
                          << std::string(std::istreambuf_iterator<char>(text), {});
            std::filesystem::remove(report.path());
        }
    }

    std::filesystem::path folder_;
};

[[maybe_unused]] const bool listens = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new ReportsFailTests);
    return true;
}();

}  // namespace
}  // namespace stagehopper
