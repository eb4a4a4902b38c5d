// A document the whole way: a file, the extension's answer to a host's request, the tree that the
// host reads in it, and every form in which that is drawn.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>
#include <string_view>

#include "Foundation/Instant.hpp"
#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"
#include "WidgetRuntime/Dispatcher.hpp"

namespace {

using namespace widgetruntime;

constexpr std::size_t kHeader = 12;

void require(bool holds) {
  if (!holds) std::abort();
}

/// Where the extension finds the document of the moment.
class DocumentFile {
 public:
  DocumentFile() : descriptor_(::memfd_create("document", MFD_CLOEXEC)) {}

  void hold(std::string_view bytes) const {
    require(::ftruncate(descriptor_, 0) == 0);
    require(::pwrite(descriptor_, bytes.data(), bytes.size(), 0) ==
            static_cast<ssize_t>(bytes.size()));
  }
  [[nodiscard]] std::string path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

 private:
  int descriptor_;
};

/// An extension that has been told where its document is.
class Guest {
 public:
  explicit Guest(const std::string& document) : dispatcher_(quorvel::quorvelWidgetsExtension()) {
    InitializeParameters parameters;
    parameters.snapshotFile = document;
    parameters.container = "/nonexistent";
    about_ = call<InitializeAnswer>(method::kInitialize, encode(parameters));
  }

  [[nodiscard]] const std::vector<WidgetListing>& widgets() const { return about_.bundle.widgets; }

  /// Failures of data are never errors, so there is an answer, and one that a host can read.
  template <class Message>
  Message call(std::string_view method, std::string_view parametersJson) {
    const std::string text = dispatcher_.handle(writeRequest(1, method, parametersJson));
    const auto answer = readAnswer(text);
    require(answer && answer->result.has_value());
    auto message = read<Message>(*answer->result);
    require(message.has_value());
    return *std::move(message);
  }

 private:
  Dispatcher dispatcher_;
  InitializeAnswer about_;
};

foundation::Device deviceOf(const std::uint8_t* data) {
  static constexpr const char* kZones[] = {
      "UTC", "Asia/Jakarta", "America/Sao_Paulo", "Pacific/Apia", "Australia/Lord_Howe"};
  static constexpr const char* kLocales[] = {"en_US", "de_DE", "ar_EG", "th_TH", "ja_JP"};
  foundation::Device device;
  // The sample's days and months are near; 20 days to both sides and 20 hours cover their ends.
  device.now = *foundation::parseInternetDateTime("2025-03-14T09:30:00Z");
  device.now.seconds += (data[8] % 41 - 20) * std::int64_t{86'400} + data[9] % 21 * 3'600;
  device.timeZone = foundation::TimeZone{kZones[data[10] % std::size(kZones)]};
  device.locale = foundation::Locale{kLocales[data[11] % std::size(kLocales)]};
  device.preferredLanguages = {
      std::string{quorvel::kLanguageCodes[data[11] % quorvel::kLanguageCount]}};
  return device;
}

EntriesParameters requestFrom(const std::uint8_t* data, const Guest& guest) {
  EntriesParameters request;
  request.kind = guest.widgets()[data[0] % guest.widgets().size()].description.kind;
  request.family = kAllFamilies[data[0] / 16 % kAllFamilies.size()];
  request.isPreview = data[7] & 1;
  if (data[7] & 2) request.configuration["style"] = "ring";
  if (data[7] & 4) request.configuration["card"] = "a";
  if (data[7] & 8) request.previewFamily = kAllFamilies[data[7] / 16 % kAllFamilies.size()];
  request.device = deviceOf(data);
  Environment environment;
  environment.widgetRenderingMode = static_cast<RenderingMode>(data[1] % 3);
  environment.showsWidgetContainerBackground = data[1] & 4;
  environment.redactionReasons = {.privacy = (data[6] & 2) != 0, .placeholder = (data[6] & 4) != 0};
  if (data[6] & 8) environment.layoutDirection = viewkit::LayoutDirection::rightToLeft;
  if (data[6] & 16) environment.systemMargins = viewkit::Insets::all(data[5] / 8.0);
  request.environments = {environment};
  return request;
}

/// Nine of ten pictures have less than 200 points per side at scale 1, since small ones find as
/// much and sooner.
rendering::RenderOptions optionsFrom(const std::uint8_t* data, const EntriesParameters& request) {
  const Environment& environment = request.environments.front();
  rendering::RenderOptions options;
  const bool isLarge = data[2] % 10 == 0;
  const double unit = isLarge ? 3.9 : 0.77;
  options.size = {1 + data[3] * unit, 1 + data[4] * unit};
  options.scale = isLarge ? 0.5 + data[5] % 8 / 2.0 : 1;
  options.appearance = data[6] & 1 ? viewkit::Appearance::dark : viewkit::Appearance::light;
  options.mode = environment.widgetRenderingMode;
  options.redaction = environment.redactionReasons;
  options.direction = environment.layoutDirection;
  options.showsBackground = environment.showsWidgetContainerBackground;
  return options;
}

void draw(const viewkit::View& view, const rendering::RenderOptions& options) {
  static rendering::Renderer renderer;
  const auto bitmap = renderer.bitmap(view, options);
  require(bitmap && !rendering::encodePng(*bitmap).empty());
  require(renderer.svg(view, options).has_value());
  require(renderer.plainText(view, options).has_value());
  require(renderer.accessibilityTree(view, options, "Fuzz").has_value());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kHeader) return 0;
  static const DocumentFile file;
  static Guest guest{file.path()};
  file.hold({reinterpret_cast<const char*>(data) + kHeader, size - kHeader});

  const EntriesParameters request = requestFrom(data, guest);
  static constexpr std::string_view kMethods[] = {
      method::kSnapshot, method::kSnapshot, method::kTimeline, method::kPlaceholder};
  const auto answer =
      guest.call<EntriesAnswer>(kMethods[data[1] / 8 % std::size(kMethods)], encode(request));
  require(!answer.entries.empty());
  for (const RenderedEntry& entry : answer.entries) {
    require(entry.trees.size() == 1);
    draw(entry.trees.front().view, optionsFrom(data, request));
  }
  if (data[1] & 32) {
    (void)guest.call<DiagnoseAnswer>(method::kDiagnose,
                                     encode(DiagnoseParameters{.device = request.device}));
    (void)guest.call<OptionsAnswer>(
        method::kOptions,
        encode(OptionsParameters{.kind = "QuorvelCardLimitWidget", .parameter = "card"}));
  }
  return 0;
}
