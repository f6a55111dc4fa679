// What is the same in every locale, and what is not.

#include <gtest/gtest.h>
#include <unistd.h>

#include <clocale>
#include <filesystem>
#include <string>

#include "ports/linux/glib/GlibText.h"
#include "tests/linux/Variable.h"

namespace stagehopper::linux_port {
namespace {

/// GLib takes a locale for Turkish by its name, so one that is always installed will do under it.
class TurkishLocale {
public:
    TurkishLocale() {
        std::filesystem::create_directory(folder_);
        std::error_code ignored;
        std::filesystem::copy("/usr/lib/locale/C.utf8", folder_ / "tr_TR.utf8",
                              std::filesystem::copy_options::recursive, ignored);
        isSet_ = std::setlocale(LC_CTYPE, "tr_TR.utf8") != nullptr;
    }
    ~TurkishLocale() {
        std::setlocale(LC_CTYPE, "C");
        std::filesystem::remove_all(folder_);
    }
    TurkishLocale(const TurkishLocale&) = delete;
    TurkishLocale& operator=(const TurkishLocale&) = delete;

    [[nodiscard]] bool isSet() const { return isSet_; }

private:
    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("locale-" + std::to_string(getpid()));
    Variable path_{"LOCPATH", folder_.c_str()};
    bool isSet_ = false;
};

TEST(GlibText, FoldsAsTheLocaleDoesAndLowersAlike) {
    const TurkishLocale turkish;
    if (!turkish.isSet()) GTEST_SKIP() << "there is no C.utf8";
    GlibText text;
    EXPECT_EQ(text.folded("KAPI"), "kapı");
    EXPECT_EQ(text.lowercased("KAPI"), "kapi");
}

TEST(GlibText, LowersLettersOfEveryScriptAndKeepsTheirDiacritics) {
    GlibText text;
    EXPECT_EQ(text.lowercased("I ÉTÜDE ПОКАЗ 下一页"), "i étüde показ 下一页");
}

}  // namespace
}  // namespace stagehopper::linux_port
