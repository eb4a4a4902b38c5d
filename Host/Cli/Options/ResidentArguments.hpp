// The parsers of the commands that speak to the resident host.
#pragma once

#include "Cli/Options/Options.hpp"

namespace CLI {
class App;
}

namespace cli {

void describeStatus(CLI::App& app, Options& options);
void describeReload(CLI::App& app, Options& options);
void describeHide(CLI::App& app, Options& options);
void describeAdd(CLI::App& app, Options& options);
void describeRemove(CLI::App& app, Options& options);
void describeConfigure(CLI::App& app, Options& options);
void describeMove(CLI::App& app, Options& options);
void describeOpen(CLI::App& app, Options& options);
void describeBoard(CLI::App& app, Options& options);
void describeWatch(CLI::App& app, Options& options);

}  // namespace cli
