#include "tests/drivers/presentations/Deck.h"
#include "tests/drivers/presentations/Presentation.h"

namespace stagehopper::desktop {

std::unique_ptr<Presentation> openInEvince(const VirtualDesktop& desktop) {
    const auto file = desktop.folder() / "pages.pdf";
    writePdfDeck(file);
    return std::make_unique<Presentation>(desktop, desktop.start({"evince", file}), "pages.pdf");
}

}  // namespace stagehopper::desktop
