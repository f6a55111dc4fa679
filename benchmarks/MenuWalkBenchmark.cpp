// The product's own search for a menu item, through a menu bar of 2,000 items in another program:
// with the product's elements, and with a naive client's. Needs a desktop with accessibility
// switched on.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <vector>

#include "app/AppController.h"
#include "benchmarks/NaiveElement.h"
#include "benchmarks/Percentiles.h"
#include "benchmarks/TargetProgramRun.h"
#include "ports/linux/atspi/AccessibilityBus.h"
#include "ports/linux/atspi/AtSpiAccessibility.h"
#include "ports/linux/glib/GlibText.h"
#include "ports/linux/x11/X11Desktop.h"
#include "presentation/TitleMatcher.h"

namespace stagehopper::benchmarks {
namespace {

using platform::AccessibilityAttribute;
using platform::UIElement;
using platform::UIElementRef;

using Milliseconds = std::chrono::duration<double, std::milli>;

/// Every single search of a kind, for the percentiles.
std::map<std::string, std::vector<double>>& searches() {
    static std::map<std::string, std::vector<double>> all;
    return all;
}

std::filesystem::path menuProgram() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / STAGEHOPPER_MENU_PROGRAM;
}

/// What a slide step does with a menu bar. The only item that matches is the last one, and no menu
/// has a preferred title: everything is looked at.
UIElementRef findLastItem(const UIElement& menuBar) {
    linux_port::GlibText text;
    const TitleMatcher preferred(text, {"Slide Show", "幻灯片放映"});
    const TitleMatcher wanted(text, {"下一张幻灯片", "Next Slide"});
    constexpr int depth = 8;
    return AppController::findMenuItem(AppController::menuRootCandidates(menuBar, preferred),
                                       wanted, depth);
}

/// The connection to the accessibility bus is made beside the main loop.
template <typename IsConnected>
void waitUntil(IsConnected isConnected) {
    while (!isConnected()) g_main_context_iteration(nullptr, TRUE);
}

/// Reads the menu bar with `readBar` and searches all of it, for as long as the benchmark runs.
template <typename ReadBar>
void search(benchmark::State& state, const std::string& name, ReadBar readBar) {
    const TargetProgramRun program(menuProgram());
    if (program.process() == 0) {
        state.SkipWithError("the program with the menus did not come up");
        return;
    }
    for (auto unused : state) {
        static_cast<void>(unused);
        const auto start = std::chrono::steady_clock::now();
        const UIElementRef bar = readBar(program.process());
        const auto item = bar ? findLastItem(*bar) : nullptr;
        searches()[name].push_back(Milliseconds(std::chrono::steady_clock::now() - start).count());
        if (!item) {
            state.SkipWithError("the last item of the menu bar was not found");
            return;
        }
    }
}

void snapshotWalk(benchmark::State& state) {
    linux_port::X11Desktop desktop;
    linux_port::AtSpiAccessibility accessibility(desktop);
    waitUntil([&accessibility] { return accessibility.isProcessTrusted(); });
    search(state, "snapshot", [&accessibility](platform::Pid process) {
        return AppController::axElementAttribute(*accessibility.applicationElement(process),
                                                 AccessibilityAttribute::menuBar);
    });
}

void naiveWalk(benchmark::State& state) {
    linux_port::AccessibilityBus bus;
    waitUntil([&bus] { return bus.isEnabled(); });
    search(state, "naive", [&bus](platform::Pid process) { return naiveMenuBar(bus, process); });
}

BENCHMARK(snapshotWalk)->Unit(benchmark::kMillisecond)->Iterations(200)->UseRealTime();
BENCHMARK(naiveWalk)->Unit(benchmark::kMillisecond)->Iterations(12)->UseRealTime();

void report() {
    std::map<std::string, double> medians;
    for (auto& [name, times] : searches()) {
        // At the first search the toolkit makes its accessible objects; they stay from then on.
        const double first = times.front();
        times.erase(times.begin());
        if (times.empty()) continue;
        medians[name] = percentile(times, 0.5);
        std::printf("%-9s first %7.2f ms, then %3zu searches: p50 %7.2f ms, p99 %7.2f ms\n",
                    name.c_str(), first, times.size(), medians[name], percentile(times, 0.99));
    }
    if (medians.contains("naive") && medians.contains("snapshot")) {
        std::printf("ratio     naive p50 / snapshot p50 = %.1f\n",
                    medians["naive"] / medians["snapshot"]);
    }
}

}  // namespace
}  // namespace stagehopper::benchmarks

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    stagehopper::benchmarks::report();
    benchmark::Shutdown();
    return 0;
}
