#include "Rendering/Output/PlainTextGrid.hpp"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cmath>

namespace rendering {

namespace {

constexpr double kSameEdge = 0.5;

struct SetLabel {
  const PlainLabel* label = nullptr;
  int width = 0;
  int start = 0;
};
using Row = std::vector<SetLabel>;

int columnsOfScalar(UChar32 c) {
  switch (u_charType(c)) {
    case U_NON_SPACING_MARK:
    case U_ENCLOSING_MARK:
    case U_FORMAT_CHAR:
    case U_CONTROL_CHAR:
      return 0;
    default:
      break;
  }
  const int width = u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH);
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

template <class Visit>
void forEachScalar(std::string_view text, Visit visit) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
  const auto length = static_cast<std::int32_t>(text.size());
  for (std::int32_t i = 0; i < length;) {
    const std::int32_t begin = i;
    UChar32 c = 0;
    U8_NEXT_OR_FFFD(bytes, i, length, c);
    visit(c, text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(i - begin)));
  }
}

bool isIsolate(UChar32 c) {
  return c >= 0x2066 && c <= 0x2069;
}

bool overlapAcross(const PlainLabel& a, const PlainLabel& b) {
  return a.box.x + kSameEdge < b.box.right() && b.box.x + kSameEdge < a.box.right();
}

bool belongsTo(const Row& row, const PlainLabel& label) {
  return std::ranges::all_of(row, [&](const SetLabel& set) {
    const double apart = std::abs(set.label->baseline - label.baseline);
    return apart <= std::min(set.label->size, label.size) / 2 && !overlapAcross(*set.label, label);
  });
}

std::vector<Row> rowsOf(const std::vector<PlainLabel>& labels) {
  std::vector<const PlainLabel*> order;
  order.reserve(labels.size());
  for (const PlainLabel& label : labels) order.push_back(&label);
  std::ranges::stable_sort(order, {}, [](const PlainLabel* label) { return label->baseline; });
  std::vector<Row> rows;
  for (const PlainLabel* label : order) {
    if (rows.empty() || !belongsTo(rows.back(), *label)) rows.emplace_back();
    rows.back().push_back({label, columnsOf(label->text), 0});
  }
  return rows;
}

/// Whether a label lines up with others at its right edge rather than at its left, as amounts of a
/// column do. One that lines up with none ends at the right edge of the picture's half.
bool endsAtItsBox(const PlainLabel& label,
                  const std::vector<PlainLabel>& all,
                  const PlainGrid& grid) {
  const Rect& box = label.box;
  const auto sharing = [&](auto edge) {
    return std::ranges::count_if(all, [&](const PlainLabel& other) {
      return &other != &label && std::abs(edge(other.box) - edge(box)) < kSameEdge;
    });
  };
  const auto atLeft = sharing([](const Rect& r) { return r.x; });
  const auto atRight = sharing([](const Rect& r) { return r.right(); });
  if (atLeft != atRight) return atRight > atLeft;
  return box.x > grid.width - box.right() + kSameEdge &&
         std::ranges::none_of(all, [&](const PlainLabel& other) {
           return other.box.right() >= box.right() + kSameEdge;
         });
}

int wantedStart(const SetLabel& set, const std::vector<PlainLabel>& all, const PlainGrid& grid) {
  const Rect& box = set.label->box;
  const double start = endsAtItsBox(*set.label, all, grid)
                           ? std::round(box.right() / grid.cellWidth) - set.width
                           : box.x / grid.cellWidth;
  return std::max(0, static_cast<int>(std::lround(start)));
}

void pushRight(Row& row) {
  int free = 0;
  for (SetLabel& set : row) {
    set.start = std::max(set.start, free);
    free = set.start + set.width + 1;
  }
}

void pushLeft(Row& row, int columns) {
  int limit = columns;
  for (auto it = row.rbegin(); it != row.rend(); ++it) {
    it->start = std::min(it->start, limit - it->width);
    limit = it->start - 1;
  }
}

void spread(Row& row, const std::vector<PlainLabel>& all, const PlainGrid& grid) {
  std::ranges::stable_sort(row, {}, [](const SetLabel& set) { return set.label->box.x; });
  for (SetLabel& set : row) set.start = wantedStart(set, all, grid);
  pushRight(row);
  pushLeft(row, grid.columns);
  pushRight(row);  // what is left of column 0 runs over the right edge instead
}

std::string textOf(const Row& row) {
  std::string line;
  int at = 0;
  for (const SetLabel& set : row) {
    line.append(static_cast<std::size_t>(std::max(0, set.start - at)), ' ');
    line += set.label->text;
    at = set.start + set.width;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

double middleOf(const Row& row) {
  return row[0].label->box.y + row[0].label->box.height / 2;
}

}  // namespace

int columnsOf(std::string_view text) {
  int columns = 0;
  forEachScalar(text, [&](UChar32 c, std::string_view) { columns += columnsOfScalar(c); });
  return columns;
}

std::string withoutIsolates(std::string_view text) {
  std::string result;
  forEachScalar(text, [&](UChar32 c, std::string_view bytes) {
    if (isIsolate(c)) return;
    result += u_charType(c) == U_CONTROL_CHAR ? " " : bytes;
  });
  return result;
}

std::string setInGrid(std::vector<PlainLabel> labels, const PlainGrid& grid) {
  // A frame can be anywhere, and rows as far as there would be endless.
  std::erase_if(labels, [&](const PlainLabel& label) {
    const double middle = label.box.y + label.box.height / 2;
    const bool isInside = middle > -grid.cellHeight && middle < grid.height + grid.cellHeight;
    return label.text.empty() || !isInside;
  });
  std::string result;
  int next = 0;
  for (Row& row : rowsOf(labels)) {
    spread(row, labels, grid);
    const int wanted = static_cast<int>(std::floor(middleOf(row) / grid.cellHeight));
    for (; next < wanted; ++next) result += '\n';
    result += textOf(row) + '\n';
    ++next;
  }
  return result;
}

}  // namespace rendering
