// stagehopper-story FOLDER [en|zh]: shows what the program does on a virtual desktop. The last
// lines are the paths of the pictures that it leaves in the folder.

#include <filesystem>
#include <iostream>
#include <string>

#include "demo/Story.h"
#include "tests/drivers/desktop/DesktopError.h"

int main(int count, char** arguments) {
    const std::string language = count == 3 ? arguments[2] : "en";
    if (count < 2 || count > 3 || (language != "en" && language != "zh")) {
        std::cerr << "usage: stagehopper-story FOLDER [en|zh]\n";
        return 2;
    }
    try {
        const auto folder = std::filesystem::absolute(arguments[1]);
        stagehopper::desktop::Story(language).tell(folder);
        for (const auto* picture : {"phone.png", "panel.png", "screen.png"}) {
            std::cout << (folder / picture).native() << '\n';
        }
        return 0;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << "\nThe story stops here: " << error.what() << '\n';
        return 1;
    }
}
