// stagehopper-story PICTURE: tells what the program does, by doing it on a virtual desktop. The
// last line is the path of the picture.

#include <filesystem>
#include <iostream>

#include "tools/story/Story.h"
#include "tools/virtualdesktop/DesktopError.h"

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: stagehopper-story PICTURE\n";
        return 2;
    }
    try {
        const auto picture = std::filesystem::absolute(arguments[1]);
        stagehopper::desktop::Story().tell(picture);
        std::cout << picture.native() << '\n';
        return 0;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << "\nThe story stops here: " << error.what() << '\n';
        return 1;
    }
}
