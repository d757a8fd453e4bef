#include "graphics/labels.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace zorlan {
namespace {

constexpr double kCell =
    20;  // twips: an eighth of a small letter's height, finer than the gaps around labels
constexpr double kMostCells = 4096;  // of a side; a larger area has larger cells
constexpr int kBits = 64;

int CellAt(double place, double perTwip, int cells) {
  const double cell = place * perTwip;
  return cell >= 0 ? (cell < cells ? static_cast<int>(cell) : cells) : -1;  // what is no number lies outside
}

/// The bits of one word for the columns `left` to `right` that fall into it.
std::uint64_t Mask(int word, int left, int right) {
  const int from = std::max(left - word * kBits, 0), to = std::min(right - word * kBits, kBits - 1);
  return (~std::uint64_t{0} >> (kBits - 1 - to)) & (~std::uint64_t{0} << from);
}

}  // namespace

LabelField::LabelField(const Rectangle& area) : area_(area) {
  const double width = area.right - area.left, height = area.bottom - area.top;
  if (!(width > 0 && height > 0) || !std::isfinite(width) || !std::isfinite(height)) return;
  perTwip_ = 1 / std::max(kCell, std::max(width, height) / kMostCells);
  columns_ = static_cast<int>(width * perTwip_) + 2;  // the last one for what rounding adds to a line
  rows_ = static_cast<int>(height * perTwip_) + 2;
  wordsOfRow_ = (columns_ + kBits - 1) / kBits;
  words_.resize(static_cast<std::size_t>(wordsOfRow_) * static_cast<std::size_t>(rows_));
}

LabelField::Cells LabelField::CellsOf(const Rectangle& box) const {
  return {std::max(CellAt(box.left - area_.left, perTwip_, columns_), 0),
          std::max(CellAt(box.top - area_.top, perTwip_, rows_), 0),
          std::min(CellAt(box.right - area_.left, perTwip_, columns_), columns_ - 1),
          std::min(CellAt(box.bottom - area_.top, perTwip_, rows_), rows_ - 1)};
}

int LabelField::Count(const Cells& c, std::uint64_t Word::*bits, int limit) const {
  int count = 0;
  for (int word = c.left / kBits; word <= c.right / kBits; ++word) {
    const std::uint64_t mask = Mask(word, c.left, c.right);
    for (int row = c.top; row <= c.bottom; ++row) {
      const std::uint64_t found = words_[WordAt(row, word)].*bits & mask;
      if (found == 0) continue;
      count += std::popcount(found);
      if (count > limit) return count;
    }
  }
  return count;
}

Covered LabelField::CoveredBy(const Rectangle& box, const Covered& limit) const {
  constexpr int kAll = std::numeric_limits<int>::max();
  Covered covered;
  const Cells c = CellsOf(box);
  if (c.left > c.right) return covered;
  covered.texts = Count(c, &Word::texts, limit.texts);
  if (covered.texts <= limit.texts)
    covered.lines = Count(c, &Word::lines, covered.texts < limit.texts ? kAll : limit.lines);
  return covered;
}

void LabelField::Fill(const Rectangle& box, std::uint64_t Word::*bits) {
  const Cells c = CellsOf(box);
  if (c.left > c.right) return;
  for (int word = c.left / kBits; word <= c.right / kBits; ++word) {
    const std::uint64_t mask = Mask(word, c.left, c.right);
    for (int row = c.top; row <= c.bottom; ++row) words_[WordAt(row, word)].*bits |= mask;
  }
}

void LabelField::Take(const Rectangle& box) {
  Fill(box, &Word::texts);
}

void LabelField::TakeMark(const Rectangle& box) {
  Fill(box, &Word::lines);
}

template <class Use>
void LabelField::ForCellsOn(Point from, Point to, Use use) const {
  if (columns_ == 0 || !Clipping(area_, from, to)) return;
  const double dx = (to.x - from.x) * perTwip_, dy = (to.y - from.y) * perTwip_;
  const int steps = static_cast<int>(std::max(std::abs(dx), std::abs(dy))) + 1;
  // From cell to cell in whole numbers. Both ends lie in the area; two units keep what is cut off the numbers
  // from leading below 0.
  constexpr int kFraction = 32;
  constexpr double kOne = std::int64_t{1} << kFraction;
  const auto whole = [](double cells) { return static_cast<std::int64_t>(cells * kOne); };
  std::int64_t column = whole((from.x - area_.left) * perTwip_) + 2;
  std::int64_t row = whole((from.y - area_.top) * perTwip_) + 2;
  const std::int64_t columnStep = whole(dx / steps), rowStep = whole(dy / steps);
  for (int k = 0; k <= steps; ++k, column += columnStep, row += rowStep) {
    const int c = static_cast<int>(column >> kFraction), r = static_cast<int>(row >> kFraction);
    use(WordAt(r, c / kBits), std::uint64_t{1} << (c % kBits));
  }
}

void LabelField::TakeLine(Point from, Point to) {
  ForCellsOn(from, to, [&](std::size_t word, std::uint64_t bit) { words_[word].lines |= bit; });
}

int LabelField::LinesBetween(Point from, Point to) const {
  int lines = 0;
  ForCellsOn(from, to,
             [&](std::size_t word, std::uint64_t bit) { lines += (words_[word].lines & bit) != 0 ? 1 : 0; });
  return lines;
}

void LabelField::TakePolyline(std::span<const Point> points) {
  const double fine = 1 / perTwip_;
  for (std::size_t from = 0, k = 1; k < points.size(); ++k) {
    const double dx = points[k].x - points[from].x, dy = points[k].y - points[from].y;
    if (k + 1 < points.size() && std::abs(dx) < fine && std::abs(dy) < fine) continue;
    TakeLine(points[from], points[k]);
    from = k;
  }
}

std::size_t LabelField::Place(std::span<const Rectangle> boxes) {
  if (boxes.empty()) return 0;
  std::size_t chosen = 0;
  Covered least = boxes.size() > 1 ? CoveredBy(boxes[0]) : Covered();
  for (std::size_t k = 1; k < boxes.size() && !least.Nothing(); ++k) {
    const Covered covered = CoveredBy(boxes[k], least);
    if (covered < least) least = covered, chosen = k;
  }
  Take(boxes[chosen]);
  return chosen;
}

Crowding::Crowding(const Rectangle& area) : area_(area) {
  constexpr double kMostParts = 256;  // of a side
  const double width = area.right - area.left, height = area.bottom - area.top;
  if (!(width > 0 && height > 0) || !std::isfinite(width) || !std::isfinite(height)) return;
  side_ = std::max(side_, std::max(width, height) / kMostParts);
  columns_ = static_cast<int>(width / side_) + 1;
  rows_ = static_cast<int>(height / side_) + 1;
  need_.resize(static_cast<std::size_t>(columns_) * static_cast<std::size_t>(rows_));
}

}  // namespace zorlan
