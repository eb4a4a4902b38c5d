#include "Cli/Sheet/SheetLayout.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace cli {
namespace {

using rendering::Size;

struct Column {
  std::vector<std::size_t> members;
  double width = 0;
  double height = 0;  ///< with a gap between neighbours
};

double tallestOf(const std::vector<Size>& boxes) {
  double tallest = 0;
  for (const Size& box : boxes) tallest = std::max(tallest, box.height);
  return tallest;
}

std::vector<Column> columnsOf(const std::vector<Size>& pictures, double tallest, double gap) {
  std::vector<Column> columns;
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    const double height = pictures[i].height;
    if (columns.empty() || columns.back().height + gap + height > tallest) {
      columns.push_back({{}, 0, -gap});
    }
    Column& column = columns.back();
    column.members.push_back(i);
    column.width = std::max(column.width, pictures[i].width);
    column.height += gap + height;
  }
  return columns;
}

/// How many columns the rows fill when none may be higher than `limit`.
std::size_t columnsWithin(const std::vector<Size>& rows, double gap, double limit) {
  std::size_t columns = 0;
  double height = std::numeric_limits<double>::infinity();
  for (const Size& row : rows) {
    height += gap + row.height;
    if (height <= limit) continue;
    ++columns;
    height = row.height;
  }
  return columns;
}

/// The least height, to a tenth of a point, at which the rows need no more than `most` columns.
double leastHeight(const std::vector<Size>& rows, double gap, std::size_t most) {
  double low = tallestOf(rows);
  double high = low;
  for (const Size& row : rows) high += gap + row.height;
  if (columnsWithin(rows, gap, low) <= most) return low;
  while (high - low > 0.1) {
    const double middle = (low + high) / 2;
    (columnsWithin(rows, gap, middle) <= most ? high : low) = middle;
  }
  return high;
}

/// How far from a square, in either direction.
double elongation(double width, double height) {
  return std::abs(std::log(width / height));
}

}  // namespace

Packing packRow(const std::vector<Size>& pictures, double gap) {
  Packing packing{.places = std::vector<rendering::Point>(pictures.size())};
  packing.size.height = tallestOf(pictures);
  double x = 0;
  for (const Column& column : columnsOf(pictures, packing.size.height, gap)) {
    const std::size_t between = column.members.size() - 1;
    const double more =
        between == 0 ? 0 : (packing.size.height - column.height) / static_cast<double>(between);
    double y = 0;
    for (const std::size_t i : column.members) {
      packing.places[i] = {x, y};
      y += pictures[i].height + gap + more;
    }
    packing.size.width = x + column.width;
    x += column.width + gap;
  }
  return packing;
}

Packing flowRows(const std::vector<Size>& rows,
                 double rowGap,
                 double columnGap,
                 std::size_t panels) {
  Packing packing{.places = {}};
  if (rows.empty()) return packing;
  double width = 0;
  for (const Size& row : rows) width = std::max(width, row.width);
  double limit = 0;
  double best = std::numeric_limits<double>::infinity();
  for (std::size_t columns = 1; columns <= rows.size(); ++columns) {
    const double height = leastHeight(rows, rowGap, columns);
    const double across = static_cast<double>(panels * columns) * (width + columnGap) - columnGap;
    if (elongation(across, height) >= best) break;
    best = elongation(across, height);
    limit = height;
  }
  double x = 0;
  double y = 0;
  for (const Size& row : rows) {
    if (y > 0 && y + row.height > limit) {
      x += width + columnGap;
      y = 0;
    }
    packing.places.push_back({x, y});
    packing.size.width = x + width;
    packing.size.height = std::max(packing.size.height, y + row.height);
    y += row.height + rowGap;
  }
  return packing;
}

}  // namespace cli
