// Places for labels: a coarse grid over the figure remembers what is taken, and a label goes to the first of
// its possible places that is free.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "graphics/plot.h"

namespace zorlan {

class LabelField {
 public:
  /// `area` in figure twips.
  explicit LabelField(const Rectangle& area);

  /// Index of the first box that lies free, 0 when none does; the box chosen is taken then. The same boxes in
  /// the same order always go to the same places.
  std::size_t Place(std::span<const Rectangle> boxes);
  void Take(const Rectangle& box);
  /// What a line covers.
  void TakeLine(Point from, Point to);
  bool Free(const Rectangle& box) const;
  void Clear();

 private:
  struct Cells {
    int left, top, right, bottom;
  };
  Cells CellsOf(const Rectangle& box) const;

  Rectangle area_;
  double perTwip_ = 1;  // cells
  int columns_ = 0, rows_ = 0, words_ = 0;
  std::vector<std::uint64_t> taken_;  // a bit a cell, `words_` words a row
};

}  // namespace zorlan
