// Places for labels: a coarse grid over the figure remembers which of its cells hold texts and which hold
// anything else that is drawn, and a label goes to the first of its possible places that covers nothing, or
// else to the one that covers least.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "graphics/plot.h"

namespace zorlan {

/// What a place covers, in cells. A text hides another one; a line only crosses it.
struct Covered {
  int texts = 0, lines = 0;

  bool Nothing() const { return texts == 0 && lines == 0; }
  /// Any text weighs more than all lines.
  bool operator<(const Covered& other) const {
    return texts != other.texts ? texts < other.texts : lines < other.lines;
  }
  Covered& operator+=(const Covered& other) {
    texts += other.texts;
    lines += other.lines;
    return *this;
  }
  static constexpr Covered Everything() {
    return {std::numeric_limits<int>::max(), std::numeric_limits<int>::max()};
  }
};

class LabelField {
 public:
  /// `area` in figure twips.
  explicit LabelField(const Rectangle& area);
  const Rectangle& Area() const { return area_; }

  /// Index of the first box that covers nothing, else of the first of those that cover least: texts count
  /// before lines. The box chosen is taken then. The same boxes in the same order always go to the same
  /// places.
  std::size_t Place(std::span<const Rectangle> boxes);
  /// What a box covers; where that is no less than `limit` the count may stop at it.
  Covered CoveredBy(const Rectangle& box, const Covered& limit = Covered::Everything()) const;

  /// How many cells along the way hold a line or mark.
  int LinesBetween(Point from, Point to) const;

  /// A text is there.
  void Take(const Rectangle& box);
  /// A mark is there: it counts as lines do.
  void TakeMark(const Rectangle& box);
  void TakeLine(Point from, Point to);
  /// The lines that join the points; what is finer than the grid costs nothing.
  void TakePolyline(std::span<const Point> points);

 private:
  /// What 64 cells of a row hold, a bit each.
  struct Word {
    std::uint64_t texts = 0, lines = 0;
  };
  struct Cells {
    int left, top, right, bottom;
  };
  Cells CellsOf(const Rectangle& box) const;
  std::size_t WordAt(int row, int word) const { return static_cast<std::size_t>(row * wordsOfRow_ + word); }
  /// The cells of a kind, or some number above `limit`.
  int Count(const Cells& cells, std::uint64_t Word::*bits, int limit) const;
  template <class Use>
  void ForCellsOn(Point from, Point to, Use use) const;
  void Fill(const Rectangle& box, std::uint64_t Word::*bits);

  Rectangle area_;
  double perTwip_ = 1;  // cells
  int columns_ = 0, rows_ = 0, wordsOfRow_ = 0;
  std::vector<Word> words_;
};

/// How much room the labels of an area need, part by part: where they need several times of what there is
/// nothing can be read, and no place is worth a search.
class Crowding {
 public:
  explicit Crowding(const Rectangle& area);
  /// A label of this size belongs to the point.
  void Add(Point p, double width, double height) {
    if (!need_.empty()) need_[PartOf(p)] += width * height;
  }
  /// Whether the labels of the point's part need more than `kFull` times its area.
  bool IsFull(Point p) const { return !need_.empty() && need_[PartOf(p)] > kFull * side_ * side_; }

 private:
  static constexpr double kFull = 2;
  std::size_t PartOf(Point p) const {
    return PartOf(p.y - area_.top, rows_) * static_cast<std::size_t>(columns_) +
           PartOf(p.x - area_.left, columns_);
  }
  std::size_t PartOf(double at, int parts) const {
    return at > 0 ? static_cast<std::size_t>(std::min(at / side_, parts - 1.0)) : 0;
  }

  Rectangle area_;
  double side_ = 1000;  // twips of a part
  int columns_ = 0, rows_ = 0;
  std::vector<double> need_;  // square twips
};

}  // namespace zorlan
