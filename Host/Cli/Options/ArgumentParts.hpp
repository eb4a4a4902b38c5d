// Options and arguments that several commands have, each added to a command's parser with its help,
// its group and what it is checked against.
#pragma once

#include <string>
#include <vector>

#include "Cli/Options/Options.hpp"

namespace CLI {
class App;
}

namespace cli {

void addSource(CLI::App& app, SourceOptions& source);
void addNowAndPlace(CLI::App& app, DeviceOptions& device);
void addLanguages(CLI::App& app,
                  std::vector<std::string>& languages,
                  const std::string& help,
                  const char* group);
void addDevice(CLI::App& app, DeviceOptions& device);
void addFamily(CLI::App& app, PictureOptions& picture);
void addConfiguration(CLI::App& app, PictureOptions& picture);
void addPreview(CLI::App& app, PictureOptions& picture);
void addSize(CLI::App& app, PictureOptions& picture);
void addAppearance(CLI::App& app, PictureOptions& picture);
void addMode(CLI::App& app, PictureOptions& picture);
void addScale(CLI::App& app,
              PictureOptions& picture,
              const std::string& help,
              const std::string& group);
void addDrawing(CLI::App& app, PictureOptions& picture);
void addOutput(CLI::App& app, OutputOptions& output);
void addPng(CLI::App& app, OutputOptions& output);
void addFormat(CLI::App& app, Options& options);
void addIdPrefix(CLI::App& app, OutputOptions& output);
void addJson(CLI::App& app, Options& options);
void addPicture(CLI::App& app, Options& options);
void addKind(CLI::App& app, Options& options);
void addCount(
    CLI::App& app, const std::string& flag, int& target, int least, const std::string& help);

}  // namespace cli
