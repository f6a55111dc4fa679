#pragma once

namespace stagehopper::linux_port {

/// Opens each of standard input, output and error that is missing. Otherwise the next file that is
/// opened, such as the connection to the display, would get its number, and log lines would be
/// written into it. Main thread, before anything opens a file.
void openMissingStandardFiles();

}  // namespace stagehopper::linux_port
