// From options to what the extension is asked and how the answer is drawn.
#pragma once

#include <filesystem>
#include <string>

#include "Cli/Guest.hpp"
#include "Cli/Options/Options.hpp"
#include "Foundation/Device.hpp"
#include "Rendering/Renderer.hpp"

namespace cli {

/// This machine's clock, zone, locale and languages, where the options say nothing else.
[[nodiscard]] foundation::Device deviceFrom(const DeviceOptions& options,
                                            const foundation::ProcessEnvironment& environment);

[[nodiscard]] widgetruntime::EntriesParameters entriesParameters(const std::string& kind,
                                                                 widgetruntime::WidgetFamily family,
                                                                 const PictureOptions& options,
                                                                 const foundation::Device& device);

[[nodiscard]] rendering::RenderOptions renderOptions(widgetruntime::WidgetFamily family,
                                                     const PictureOptions& options,
                                                     const foundation::Device& device,
                                                     const std::filesystem::path& images);

/// The entry's one tree. Warns on the error stream, in one line, when no document stands behind it
/// although one was asked for.
[[nodiscard]] Result<viewkit::View> fetchView(Guest& guest,
                                              const widgetruntime::EntriesParameters& parameters);

/// Refused when the widget has no such parameter, or an enumeration no such case. Entities are the
/// extension's business.
[[nodiscard]] Result<void> checkConfiguration(const widgetruntime::WidgetListing& widget,
                                              const widgetruntime::IntentValues& values);

/// "FILE:LINE:COLUMN: POINTER: expected ..., found ..." for what is wrong with a document; empty
/// when nothing is.
[[nodiscard]] std::string documentProblem(Guest& guest, const foundation::Device& device);

}  // namespace cli
