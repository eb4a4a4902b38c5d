// The commands: each reads what it needs from the options and ends done or refused.
#pragma once

#include "Cli/Options.hpp"
#include "Cli/Program.hpp"
#include "Cli/Result.hpp"

namespace cli {

[[nodiscard]] Result<void> list(const Options& options, const Program& program);
[[nodiscard]] Result<void> render(const Options& options, const Program& program);
[[nodiscard]] Result<void> sheet(const Options& options, const Program& program);
[[nodiscard]] Result<void> gallery(const Options& options, const Program& program);
[[nodiscard]] Result<void> timeline(const Options& options, const Program& program);
[[nodiscard]] Result<void> choices(const Options& options, const Program& program);
[[nodiscard]] Result<void> validate(const Options& options, const Program& program);
[[nodiscard]] Result<void> sample(const Options& options, const Program& program);
[[nodiscard]] Result<void> perform(const Options& options, const Program& program);
[[nodiscard]] Result<void> bench(const Options& options, const Program& program);
[[nodiscard]] Result<void> doctor(const Options& options, const Program& program);

}  // namespace cli
