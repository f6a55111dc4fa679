#include <string>

#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/presentations/Deck.h"

namespace stagehopper::desktop {

namespace {

constexpr const char* opening = R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
    xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
    xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
    xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0"
    xmlns:presentation="urn:oasis:names:tc:opendocument:xmlns:presentation:1.0"
    xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
    xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0"
    office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.presentation">
<office:automatic-styles>
<style:page-layout style:name="page">
<style:page-layout-properties fo:page-width="28cm" fo:page-height="15.75cm"
    style:print-orientation="landscape"/>
</style:page-layout>
<style:style style:name="box" style:family="graphic">
<style:graphic-properties draw:stroke="none" draw:fill="none"/>
</style:style>
<style:style style:name="number" style:family="paragraph">
<style:text-properties fo:font-size="160pt" fo:color="#FFFFFF" fo:font-weight="bold"/>
</style:style>
)";

std::string pageStyle(int slide) {
    return "<style:style style:name=\"slide" + std::to_string(slide) +
           "\" style:family=\"drawing-page\"><style:drawing-page-properties draw:fill=\"solid\""
           " draw:fill-color=\"" +
           hexColor(slide) +
           "\" presentation:background-visible=\"true\""
           " presentation:background-objects-visible=\"true\"/></style:style>\n";
}

std::string page(int slide) {
    const auto number = std::to_string(slide);
    return "<draw:page draw:name=\"Slide " + number + "\" draw:style-name=\"slide" + number +
           "\" draw:master-page-name=\"Default\"><draw:frame draw:style-name=\"box\""
           " svg:x=\"2cm\" svg:y=\"1cm\" svg:width=\"8cm\" svg:height=\"8cm\"><draw:text-box>"
           "<text:p text:style-name=\"number\">" +
           number + "</text:p></draw:text-box></draw:frame></draw:page>\n";
}

}  // namespace

void writeOpenDocumentDeck(const std::filesystem::path& file) {
    std::string deck = opening;
    for (int slide = 1; slide <= slideCount; ++slide) deck += pageStyle(slide);
    deck +=
        "</office:automatic-styles>\n<office:master-styles><style:master-page"
        " style:name=\"Default\" style:page-layout-name=\"page\"/></office:master-styles>\n"
        "<office:body><office:presentation>\n";
    for (int slide = 1; slide <= slideCount; ++slide) deck += page(slide);
    deck += "</office:presentation></office:body></office:document>\n";
    writeFile(file, deck);
}

}  // namespace stagehopper::desktop
