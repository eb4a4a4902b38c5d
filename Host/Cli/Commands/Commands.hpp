// The commands: each reads what it needs from the options and ends done or refused.
#pragma once

#include "Cli/Options/Options.hpp"
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
[[nodiscard]] Result<void> status(const Options& options, const Program& program);
[[nodiscard]] Result<void> reload(const Options& options, const Program& program);
[[nodiscard]] Result<void> board(const Options& options, const Program& program);
[[nodiscard]] Result<void> hide(const Options& options, const Program& program);
[[nodiscard]] Result<void> add(const Options& options, const Program& program);
[[nodiscard]] Result<void> removePlacement(const Options& options, const Program& program);
[[nodiscard]] Result<void> configure(const Options& options, const Program& program);
[[nodiscard]] Result<void> move(const Options& options, const Program& program);
[[nodiscard]] Result<void> open(const Options& options, const Program& program);
[[nodiscard]] Result<void> watch(const Options& options, const Program& program);
[[nodiscard]] Result<void> bench(const Options& options, const Program& program);
[[nodiscard]] Result<void> doctor(const Options& options, const Program& program);

}  // namespace cli
