#include "tests/drivers/desktop/FileWriting.h"

#include <fstream>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::desktop {

void writeFile(const std::filesystem::path& file, const std::string& contents) {
    std::ofstream stream(file, std::ios::binary);
    stream << contents;
    stream.close();
    if (!stream) throw DesktopError("the file " + file.native() + " could not be written");
}

}  // namespace stagehopper::desktop
