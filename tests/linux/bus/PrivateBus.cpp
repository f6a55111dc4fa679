#include "tests/linux/bus/PrivateBus.h"

#include <csignal>
#include <fstream>
#include <utility>

#include "tests/drivers/desktop/DesktopError.h"

namespace stagehopper::linux_port {

PrivateBus::PrivateBus(std::filesystem::path folder)
    : folder_(std::move(folder)), address_("unix:path=" + (folder_ / "socket").native()) {
    std::filesystem::create_directories(folder_);
    std::ofstream(folder_ / "config") << "<busconfig><listen>" << address_ << "</listen>"
                                      << "<policy context=\"default\"><allow send_destination=\"*\""
                                         " eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
                                         "<allow own=\"*\"/></policy></busconfig>\n";
    start();
}

void PrivateBus::hang() const {
    daemon_->signal(SIGSTOP);
}

void PrivateBus::goOn() const {
    daemon_->signal(SIGCONT);
}

void PrivateBus::die() {
    daemon_->signal(SIGKILL);
    if (!daemon_->waitForExit(std::chrono::seconds(5))) {
        throw desktop::DesktopError("the bus does not die");
    }
    daemon_.reset();
}

void PrivateBus::start() {
    std::filesystem::remove(folder_ / "socket");
    daemon_ = std::make_unique<desktop::ChildProgram>(
        desktop::ChildOptions{{"dbus-daemon", "--config-file=" + (folder_ / "config").native(),
                               "--nofork", "--print-address=1"},
                              {"PATH=/usr/bin:/bin"}});
    if (!daemon_->output().waitForLine("unix:path=", std::chrono::seconds(10))) {
        throw desktop::DesktopError("the bus does not start:\n" + daemon_->output().text());
    }
}

}  // namespace stagehopper::linux_port
