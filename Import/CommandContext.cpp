#include "Import/CommandContext.hpp"

#include <chrono>
#include <filesystem>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

namespace importer {
namespace {

std::string absolute(const std::string& path) {
  std::error_code ignored;
  const auto full = std::filesystem::absolute(path, ignored);
  return full.empty() ? path : full.lexically_normal().string();
}

foundation::Instant present() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  const auto seconds = std::chrono::floor<std::chrono::seconds>(now);
  return {.seconds = seconds.count(),
          .nanoseconds = static_cast<std::int32_t>((now - seconds).count())};
}

}  // namespace

CommandContext makePlaces(const Options& options, const Program& program) {
  CommandContext context;
  context.places = findPlaces(program.environment, program.folder);
  context.settingsFile =
      options.config.empty() ? context.places.settings : absolute(options.config);
  context.container =
      options.container.empty() ? context.places.container : absolute(options.container);
  context.now = present();
  const foundation::Calendar calendar(foundation::currentTimeZone(program.environment));
  const auto today = calendar.components(context.now);
  constexpr std::int64_t kDay = 86400;  // seconds
  context.midnight = calendar.date(today.year, today.month, today.day + 1)
                         .value_or(foundation::Instant{context.now.seconds + kDay});
  context.request.file = options.file;
  context.request.environment = program.environment;
  if (const auto day = dayOf(today.year, today.month, today.day)) context.request.today = *day;
  context.language =
      quorvel::preferredLanguageCode(foundation::preferredLanguages(program.environment));
  return context;
}

Result<CommandContext> makeContext(const Options& options, const Program& program) {
  CommandContext context = makePlaces(options, program);
  if (!context.settingsFile.empty()) {
    auto settings = readSettings(
        context.settingsFile, options.config.empty() ? Existence::optional : Existence::required);
    if (!settings) return std::unexpected(settings.error());
    context.settings = *std::move(settings);
  }
  context.request.today = context.settings.today.value_or(context.request.today);
  context.language = context.settings.language.value_or(context.language);
  return context;
}

Result<Reading> readFigures(const CommandContext& context) {
  auto journal = readJournal(context.request, context.settings);
  if (!journal) return std::unexpected(journal.error());
  Reading reading{.journal = *std::move(journal), .figures = {}};
  auto figures = figuresOf(reading.journal, context.settings);
  if (!figures) return std::unexpected(figures.error());
  reading.figures = *std::move(figures);
  return reading;
}

}  // namespace importer
