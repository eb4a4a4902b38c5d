// Writes bytes to files so that whoever reads meanwhile, or after a crash, finds the old ones or
// the new ones, never a part.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <system_error>

namespace foundation {

/// Writes everything to a descriptor, which may be a pipe's. No error: all of it is written.
[[nodiscard]] std::error_code writeAll(int descriptor, std::string_view bytes);

struct ReplaceOptions {
  mode_t mode = 0600;      ///< of the new file, less the process's mask
  bool keepsMode = false;  ///< that of a file which is replaced, instead
  bool isDurable = true;   ///< on disk before it has its name, so that it outlives a power cut
};

/// Puts a new file in the place of `path`, whose folder must be there: a link is replaced, not what
/// it points to. When it fails, `path` is as it was and nothing is left beside it.
///
///     if (const auto error = foundation::replaceFile(path, text)) complain(error.message());
[[nodiscard]] std::error_code replaceFile(const std::string& path,
                                          std::string_view bytes,
                                          const ReplaceOptions& options = {});

}  // namespace foundation
