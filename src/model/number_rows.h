// From the number that the user typed to the row of the table.
#pragma once

#include <cstdint>
#include <vector>

#include "model/model_rec.h"

namespace zorlan {

/// The first row of each number in a table whose records begin with `number`.
class NumberRows {
 public:
  NumberRows() = default;
  template <class Record>
  NumberRows(const Rows<Record>& rows, int count) {
    for (int r = 1; r <= count; ++r) Note(rows[r].number, r);
  }

  /// Row of `number`, 0 if no row has it.
  int Row(int number) const {
    const std::size_t place = Place(number);
    return place < row_.size() ? row_[place] : 0;
  }

  /// `number` stands in `row`; a number already known keeps its first row.
  void Note(int number, int row) {
    const std::size_t place = Place(number);
    if (place >= row_.size()) row_.resize(place + 1);
    if (row_[place] == 0) row_[place] = static_cast<std::uint16_t>(row);
  }

 private:
  /// Numbers are 16 bits; 0, 1, -1, 2, -2 ... keep the usual small ones in front.
  static std::size_t Place(int number) {
    return number >= 0 ? static_cast<std::size_t>(2 * number) : static_cast<std::size_t>(-2 * number - 1);
  }
  std::vector<std::uint16_t> row_;
};

}  // namespace zorlan
