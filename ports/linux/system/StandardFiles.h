#pragma once

namespace stagehopper::linux_port {

/// Opens whichever of standard input, output and error the program was started without. Otherwise
/// the next file that is opened, the connection to the display say, would get such a number, and
/// log lines would be written into it. Main thread, before anything opens a file.
void openMissingStandardFiles();

}  // namespace stagehopper::linux_port
