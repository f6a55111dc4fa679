#include <cstdio>
#include <string>
#include <vector>

#include "tests/drivers/desktop/FileWriting.h"
#include "tests/drivers/presentations/Deck.h"

namespace stagehopper::desktop {

namespace {

/// Builds a PDF file: numbered objects, then the table of their positions.
class PdfWriter {
public:
    /// Objects get their numbers in the order of their adding, from 1.
    void add(const std::string& object) {
        places_.push_back(text_.size());
        text_ += std::to_string(places_.size()) + " 0 obj\n" + object + "\nendobj\n";
    }

    /// The first object must be the catalog.
    std::string finish() {
        const auto table = text_.size();
        const auto size = std::to_string(places_.size() + 1);
        text_ += "xref\n0 " + size + "\n0000000000 65535 f \n";
        for (const auto place : places_) {
            std::array<char, 21> entry{};
            std::snprintf(entry.data(), entry.size(), "%010zu 00000 n \n", place);
            text_ += entry.data();
        }
        text_ += "trailer\n<< /Size " + size + " /Root 1 0 R >>\nstartxref\n" +
                 std::to_string(table) + "\n%%EOF\n";
        return text_;
    }

private:
    std::string text_ = "%PDF-1.4\n";
    std::vector<std::size_t> places_;
};

std::string reference(int number) {
    return std::to_string(number) + " 0 R";
}

std::string colorOf(int slide) {
    const auto color = slideColors.at(static_cast<std::size_t>(slide - 1));
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.4f %.4f %.4f", color.red / 255.0,
                  color.green / 255.0, color.blue / 255.0);
    return text.data();
}

}  // namespace

void writePdfDeck(const std::filesystem::path& file) {
    constexpr int catalog = 1;
    constexpr int pages = 2;
    constexpr int font = 3;
    // Then, for each slide, its page and what is drawn on it.
    const auto pageNumber = [](int slide) { return font + 2 * slide - 1; };

    std::string kids;
    for (int slide = 1; slide <= slideCount; ++slide) kids += reference(pageNumber(slide)) + " ";

    PdfWriter writer;
    static_assert(catalog == 1);
    writer.add("<< /Type /Catalog /Pages " + reference(pages) + " >>");
    writer.add("<< /Type /Pages /Count " + std::to_string(slideCount) + " /Kids [ " + kids +
               "] >>");
    writer.add("<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica-Bold >>");
    for (int slide = 1; slide <= slideCount; ++slide) {
        writer.add("<< /Type /Page /Parent " + reference(pages) +
                   " /MediaBox [0 0 960 540] /Resources << /Font << /F1 " + reference(font) +
                   " >> >> /Contents " + reference(pageNumber(slide) + 1) + " >>");
        const std::string drawing = colorOf(slide) +
                                    " rg 0 0 960 540 re f 1 1 1 rg BT /F1 220 Tf 60 320 Td (" +
                                    std::to_string(slide) + ") Tj ET";
        writer.add("<< /Length " + std::to_string(drawing.size()) + " >>\nstream\n" + drawing +
                   "\nendstream");
    }
    writeFile(file, writer.finish());
}

}  // namespace stagehopper::desktop
