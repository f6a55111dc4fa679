#include "ports/linux/x11/ProgramIdentity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace stagehopper::linux_port {
namespace {

using testing::Eq;
using testing::Optional;

struct Case {
    const char* what;
    ProgramTraces traces;
    const char* identity;
};

class KnownPrograms : public testing::TestWithParam<Case> {};

TEST_P(KnownPrograms, AreRecognizedByTheirTraces) {
    EXPECT_THAT(programIdentity(GetParam().traces), Optional(Eq(GetParam().identity)))
        << GetParam().what;
}

WindowNames named(std::string application, std::string instance, std::string className) {
    return {std::move(application), std::move(instance), std::move(className), false};
}

WindowNames show() {
    return {"", "soffice", "Soffice", true};
}

INSTANTIATE_TEST_SUITE_P(
    ProgramIdentity, KnownPrograms,
    testing::Values(
        Case{"WPS", {{named("", "wpp", "wpp")}, "wpp"}, "com.kingsoft.wpsoffice.mac"},
        Case{"Chrome",
             {{named("", "google-chrome", "Google-chrome")}, "chrome"},
             "com.google.Chrome"},
        Case{"Chrome in a profile",
             {{named("", "google-chrome (/tmp/p)", "Google-chrome")}, "chrome"},
             "com.google.Chrome"},
        Case{"Edge",
             {{named("", "microsoft-edge", "Microsoft-edge")}, "msedge"},
             "com.microsoft.edgemac"},
        Case{"Firefox ESR",
             {{named("", "Navigator", "firefox-esr")}, "firefox-esr"},
             "org.mozilla.firefox"},
        Case{
            "Firefox", {{named("", "Navigator", "firefox")}, "firefox-bin"}, "org.mozilla.firefox"},
        Case{"Firefox in a snap",
             {{named("", "Navigator", "firefox_firefox")}, "firefox"},
             "org.mozilla.firefox"},
        Case{"Chromium in a profile",
             {{named("", "chromium (/tmp/p)", "Chromium")}, "chromium"},
             "org.chromium.Chromium"},
        Case{"Chromium in a Flatpak",
             {{named("", "org.chromium.Chromium", "org.chromium.Chromium")}, "chrome"},
             "org.chromium.Chromium"},
        Case{"Evince",
             {{named("org.gnome.Evince", "evince", "Evince")}, "evince"},
             "org.gnome.Evince"},
        Case{"Okular", {{named("", "okular", "okular")}, "okular"}, "org.kde.okular"},
        Case{"Impress with an editor",
             {{named("org.libreoffice", "libreoffice", "libreoffice-impress")}, "soffice.bin"},
             "org.libreoffice.Impress"},
        Case{"Impress with an editor behind a text",
             {{named("org.libreoffice", "libreoffice", "libreoffice-writer"),
               named("org.libreoffice", "libreoffice", "libreoffice-impress")},
              "soffice.bin"},
             "org.libreoffice.Impress"},
        Case{"a slide show alone", {{show()}, "soffice.bin"}, "org.libreoffice.Impress"}));

TEST(ProgramIdentity, AnOfficeSuiteWithoutSlidesIsNotImpress) {
    const ProgramTraces writer{{named("", "libreoffice", "libreoffice-writer")}, "soffice.bin"};
    EXPECT_THAT(programIdentity(writer), Optional(Eq("libreoffice-writer")));
}

TEST(ProgramIdentity, AFullScreenTextBesideItsOwnWindowIsNotASlideShow) {
    const ProgramTraces writer{{named("", "libreoffice", "libreoffice-writer"), show()},
                               "soffice.bin"};
    EXPECT_THAT(programIdentity(writer), Optional(Eq("libreoffice-writer")));
}

TEST(ProgramIdentity, AFullScreenWindowOfAnotherProgramIsNotASlideShow) {
    EXPECT_THAT(programIdentity({{show()}, "player"}), Optional(Eq("Soffice")));
}

TEST(ProgramIdentity, AnUnknownProgramHasItsApplicationIdThenItsClassThenItsExecutable) {
    EXPECT_THAT(programIdentity({{named("org.gnome.TextEditor", "ed", "Ed")}, "ed"}),
                Optional(Eq("org.gnome.TextEditor")));
    EXPECT_THAT(programIdentity({{named("", "ed", "Ed")}, "editor"}), Optional(Eq("Ed")));
    EXPECT_THAT(programIdentity({{named("", "", "")}, "editor"}), Optional(Eq("editor")));
}

TEST(ProgramIdentity, AProgramWithoutTracesHasNone) {
    EXPECT_EQ(programIdentity({}), std::nullopt);
}

TEST(ProgramIdentity, ANameThatMerelyContainsAKnownOneIsAnotherProgram) {
    EXPECT_THAT(programIdentity({{named("", "chrome-remote", "Chrome-remote")}, "remote"}),
                Optional(Eq("Chrome-remote")));
}

}  // namespace
}  // namespace stagehopper::linux_port
