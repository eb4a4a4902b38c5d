#include "Import/Session.hpp"

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

Session makePlaces(const Options& options, const Program& program) {
  Session session;
  session.places = findPlaces(program.environment, program.folder);
  session.settingsFile =
      options.config.empty() ? session.places.settings : absolute(options.config);
  session.container =
      options.container.empty() ? session.places.container : absolute(options.container);
  session.now = present();
  const foundation::Calendar calendar(foundation::currentTimeZone(program.environment));
  const auto today = calendar.components(session.now);
  constexpr std::int64_t kDay = 86400;  // seconds
  session.midnight = calendar.date(today.year, today.month, today.day + 1)
                         .value_or(foundation::Instant{session.now.seconds + kDay});
  session.request.file = options.file;
  session.request.environment = program.environment;
  if (const auto day = dayOf(today.year, today.month, today.day)) session.request.today = *day;
  session.language =
      quorvel::preferredLanguageCode(foundation::preferredLanguages(program.environment));
  return session;
}

Result<Session> makeSession(const Options& options, const Program& program) {
  Session session = makePlaces(options, program);
  if (!session.settingsFile.empty()) {
    auto settings = readSettings(
        session.settingsFile, options.config.empty() ? Existence::optional : Existence::required);
    if (!settings) return std::unexpected(settings.error());
    session.settings = *std::move(settings);
  }
  session.request.today = session.settings.today.value_or(session.request.today);
  session.language = session.settings.language.value_or(session.language);
  return session;
}

Result<Reading> readFigures(const Session& session) {
  auto journal = readJournal(session.request, session.settings);
  if (!journal) return std::unexpected(journal.error());
  Reading reading{.journal = *std::move(journal), .figures = {}};
  auto figures = figuresOf(reading.journal, session.settings);
  if (!figures) return std::unexpected(figures.error());
  reading.figures = *std::move(figures);
  return reading;
}

}  // namespace importer
