#include "tests/drivers/presentations/Impress.h"

#include "tests/drivers/desktop/DesktopError.h"
#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/presentations/Deck.h"

namespace stagehopper::desktop {

namespace {

constexpr std::chrono::seconds showLimit{20};

// A profile in which the office suite has nothing to welcome us with.
constexpr const char* settings = R"(<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="FirstRun"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Office.Common/Save/Document"><prop oor:name="AutoSave"><value>false</value></prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="ooSetupLastVersion"><value>7.4</value></prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="WhatsNew"><value>false</value></prop></item>
</oor:items>
)";

std::unique_ptr<ChildProgram> startImpress(const VirtualDesktop& desktop) {
    const auto deck = desktop.folder() / "deck.fodp";
    writeOpenDocumentDeck(deck);
    const auto profile = desktop.folder() / "impress";
    std::filesystem::create_directories(profile / "user");
    writeFile(profile / "user" / "registrymodifications.xcu", settings);
    return desktop.start({"soffice", "-env:UserInstallation=file://" + profile.native(),
                          "--norestore", "--nologo", "--nofirststartwizard", deck});
}

}  // namespace

Impress::Impress(const VirtualDesktop& desktop)
    : Presentation(desktop, startImpress(desktop), "LibreOffice Impress") {}

std::optional<Window> Impress::findShow() const {
    for (const auto candidate : desktop().windows().ofProcess(process())) {
        if (candidate != editor() && desktop().windows().isFullScreen(candidate)) return candidate;
    }
    return std::nullopt;
}

Window Impress::window() const {
    return show_.value_or(editor());
}

void Impress::startShow() {
    desktop().windows().activate(editor());
    desktop().user().strike({XK_F5});
    if (!waitFor([this] { return (show_ = findShow()).has_value(); }, showLimit) ||
        !waitFor([this] { return currentSlide().has_value(); }, showLimit)) {
        throw DesktopError("the slide show did not start");
    }
    // Some starts leave it behind the editor.
    activate();
}

bool Impress::editorSays(int slide) const {
    const auto root = desktop().accessible().program(process());
    return root && desktop().accessible().find(*root, ATSPI_ROLE_PANEL,
                                               "PageShape: Slide " + std::to_string(slide));
}

}  // namespace stagehopper::desktop
