#include "ports/linux/x11/ProgramIdentity.h"

#include <gmock/gmock.h>

#include <gtest/gtest.h>
#include <utility>

namespace stagehopper::linux_port {
namespace {

using testing::Eq;
using testing::Optional;

WindowNames named(std::string application, std::string instance, std::string className) {
    return {std::move(application), std::move(instance), std::move(className), false};
}

WindowNames show() {
    return {"", "soffice", "Soffice", true};
}

TEST(ProgramIdentity, KnownProgramsAreRecognizedByTheirTraces) {
    const auto writer = named("org.libreoffice", "libreoffice", "libreoffice-writer");
    const auto impress = named("org.libreoffice", "libreoffice", "libreoffice-impress");
    const std::pair<ProgramTraces, const char*> cases[] = {
        {{{named("", "wpp", "wpp")}, "wpp"}, "com.kingsoft.wpsoffice.mac"},
        {{{named("", "google-chrome", "Google-chrome")}, "chrome"}, "com.google.Chrome"},
        // In a profile.
        {{{named("", "google-chrome (/tmp/p)", "Google-chrome")}, "chrome"}, "com.google.Chrome"},
        {{{named("", "microsoft-edge", "Microsoft-edge")}, "msedge"}, "com.microsoft.edgemac"},
        {{{named("", "Navigator", "firefox-esr")}, "firefox-esr"}, "org.mozilla.firefox"},
        {{{named("", "Navigator", "firefox")}, "firefox-bin"}, "org.mozilla.firefox"},
        // In a snap.
        {{{named("", "Navigator", "firefox_firefox")}, "firefox"}, "org.mozilla.firefox"},
        {{{named("", "chromium (/tmp/p)", "Chromium")}, "chromium"}, "org.chromium.Chromium"},
        // In a Flatpak.
        {{{named("", "org.chromium.Chromium", "org.chromium.Chromium")}, "chrome"},
         "org.chromium.Chromium"},
        {{{named("org.gnome.Evince", "evince", "Evince")}, "evince"}, "org.gnome.Evince"},
        {{{named("", "okular", "okular")}, "okular"}, "org.kde.okular"},
        // With an editor, behind a text, and a slide show alone.
        {{{impress}, "soffice.bin"}, "org.libreoffice.Impress"},
        {{{writer, impress}, "soffice.bin"}, "org.libreoffice.Impress"},
        {{{show()}, "soffice.bin"}, "org.libreoffice.Impress"},
    };
    for (const auto& [traces, identity] : cases) {
        EXPECT_THAT(programIdentity(traces), Optional(Eq(identity)))
            << traces.windows.front().instanceName;
    }
}

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
