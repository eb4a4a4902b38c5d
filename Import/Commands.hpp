// The commands; each reads its options and returns what became of them.
#pragma once

#include "Import/Options.hpp"
#include "Import/Program.hpp"
#include "Import/Result.hpp"

namespace importer {

[[nodiscard]] Result<void> importJournal(const Options& options, const Program& program);
[[nodiscard]] Result<void> check(const Options& options, const Program& program);
[[nodiscard]] Result<void> explain(const Options& options, const Program& program);
[[nodiscard]] Result<void> init(const Options& options, const Program& program);
[[nodiscard]] Result<void> open(const Options& options, const Program& program);

}  // namespace importer
