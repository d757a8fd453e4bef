#include "graphics/labels.h"

#include <algorithm>
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
  columns_ = static_cast<int>(width * perTwip_) + 1;
  rows_ = static_cast<int>(height * perTwip_) + 1;
  words_ = (columns_ + kBits - 1) / kBits;
  taken_.resize(static_cast<std::size_t>(words_) * static_cast<std::size_t>(rows_));
}

void LabelField::Clear() {
  std::ranges::fill(taken_, 0);
}

LabelField::Cells LabelField::CellsOf(const Rectangle& box) const {
  return {std::max(CellAt(box.left - area_.left, perTwip_, columns_), 0),
          std::max(CellAt(box.top - area_.top, perTwip_, rows_), 0),
          std::min(CellAt(box.right - area_.left, perTwip_, columns_), columns_ - 1),
          std::min(CellAt(box.bottom - area_.top, perTwip_, rows_), rows_ - 1)};
}

bool LabelField::Free(const Rectangle& box) const {
  const Cells c = CellsOf(box);
  if (c.left > c.right) return true;
  for (int word = c.left / kBits; word <= c.right / kBits; ++word) {
    const std::uint64_t mask = Mask(word, c.left, c.right);
    for (int row = c.top; row <= c.bottom; ++row)
      if ((taken_[static_cast<std::size_t>(row * words_ + word)] & mask) != 0) return false;
  }
  return true;
}

void LabelField::Take(const Rectangle& box) {
  const Cells c = CellsOf(box);
  if (c.left > c.right) return;
  for (int word = c.left / kBits; word <= c.right / kBits; ++word) {
    const std::uint64_t mask = Mask(word, c.left, c.right);
    for (int row = c.top; row <= c.bottom; ++row)
      taken_[static_cast<std::size_t>(row * words_ + word)] |= mask;
  }
}

void LabelField::TakeLine(Point from, Point to) {
  if (columns_ == 0 || !Clipping(area_, from, to)) return;
  const double dx = to.x - from.x, dy = to.y - from.y;
  const int steps = static_cast<int>(std::max(std::abs(dx), std::abs(dy)) * perTwip_) + 1;
  for (int k = 0; k <= steps; ++k) {
    const double t = static_cast<double>(k) / steps;
    const int column = std::clamp(CellAt(from.x + t * dx - area_.left, perTwip_, columns_), 0, columns_ - 1);
    const int row = std::clamp(CellAt(from.y + t * dy - area_.top, perTwip_, rows_), 0, rows_ - 1);
    taken_[static_cast<std::size_t>(row * words_ + column / kBits)] |= std::uint64_t{1} << (column % kBits);
  }
}

std::size_t LabelField::Place(std::span<const Rectangle> boxes) {
  const auto free = std::ranges::find_if(boxes, [&](const Rectangle& box) { return Free(box); });
  const std::size_t chosen = free == boxes.end() ? 0 : static_cast<std::size_t>(free - boxes.begin());
  if (!boxes.empty()) Take(boxes[chosen]);
  return chosen;
}

}  // namespace zorlan
