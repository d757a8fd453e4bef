// Choosing a section from the tables: the lists that are shown, the name of a choice, and what of it goes
// into a row of the table SECT. Pure but for the lists, which come from the tables in memory.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "sections/section_kinds.h"

namespace zorlan {

/// A list of sections to choose from.
struct ChoiceList {
  std::string caption;                         // of the family: "Ｈ形鋼"
  std::vector<std::string> heads;              // of the columns, the first that of the row number
  std::string widest;                          // sample for the width of the first column behind the number
  std::vector<std::vector<std::string>> rows;  // cells by head
  std::vector<std::string> names;              // of the sections, row by row
};

/// The steel sections of a family: sizes, area, second moments.
ChoiceList SteelChoices(SteelFamily family);
/// The timber sections.
ChoiceList TimberChoices();

/// The sizes in a section's name, "H-400x200x8x13": what stands between "x" behind the first "-".
std::vector<std::string> SizesOfName(std::string_view name);

/// What the section entry works on: a row of the table SECT without its number.
struct SectionEntry {
  int type = 0;
  std::array<std::string, 4> P;
  std::string timberSection, species;
  bool operator==(const SectionEntry&) const = default;
};

/// The entry of a row's cells (number, TYPE, P1 to P4, φ, E, G, two names); a TYPE that is none counts as 0.
SectionEntry EntryOfCells(const std::vector<std::string>& cells);
/// Puts it into the cells; the others stay. There are eleven behind.
void PutEntry(const SectionEntry& entry, std::vector<std::string>& cells);

/// Another TYPE: the fields stay where they mean the same, and are emptied where they don't.
void ChangeType(SectionEntry& entry, int type);
/// The choice of a section by its name in the list of the entry's TYPE: its sizes go into P1 and on. A
/// thickness that a box has once goes into both P3 and P4. Nothing for a TYPE without a list.
void TakeChoice(SectionEntry& entry, std::string_view name);

/// The section's name, "H-400x200x8x13", "木-38x89"; empty for a TYPE without a list.
std::string NameOfEntry(const SectionEntry& entry);

}  // namespace zorlan
