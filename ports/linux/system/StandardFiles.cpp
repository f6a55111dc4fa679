#include "ports/linux/system/StandardFiles.h"

#include <fcntl.h>
#include <unistd.h>

namespace stagehopper::linux_port {

void openMissingStandardFiles() {
    // The system hands out the lowest free number, so this fills the gaps from below.
    int number = 0;
    do {
        number = ::open("/dev/null", O_RDWR);
    } while (number >= 0 && number <= STDERR_FILENO);
    if (number > STDERR_FILENO) ::close(number);
}

}  // namespace stagehopper::linux_port
