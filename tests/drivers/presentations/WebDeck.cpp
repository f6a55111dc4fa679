#include <string>

#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/presentations/Deck.h"

namespace stagehopper::desktop {

void writeWebDeck(const std::filesystem::path& file) {
    std::string colors;
    for (int slide = 1; slide <= slideCount; ++slide) colors += "\"" + hexColor(slide) + "\", ";
    writeFile(file, R"(<!doctype html>
<meta charset="utf-8">
<title>Slide 1 of 5</title>
<style>
    html, body { height: 100%; margin: 0; }
    div { color: white; font: bold 200px sans-serif; padding: 40px; }
</style>
<div></div>
<script>
    const colors = [)" + colors +
                        R"(];
    let slide = 1;
    let forged = "";
    function show() {
        document.body.style.background = colors[slide - 1];
        document.querySelector("div").textContent = slide;
        document.title = `Slide ${slide} of ${colors.length}${forged}`;
    }
    addEventListener("keydown", (event) => {
        if (!event.isTrusted) forged = " after a forged key";
        if (event.key === "ArrowRight") slide = Math.min(slide + 1, colors.length);
        if (event.key === "ArrowLeft") slide = Math.max(slide - 1, 1);
        show();
    });
    show();
</script>
)");
}

}  // namespace stagehopper::desktop
