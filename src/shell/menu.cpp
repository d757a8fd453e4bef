#include "shell/menu.h"

#include <algorithm>

#include "model/model_rec.h"
#include "model/model_state.h"
#include "shell/projects.h"

namespace zorlan {
namespace {

struct TableCommand {
  Command command;
  std::string_view form;
};
constexpr TableCommand kTableCommands[] = {
    {Command::Title, "InpTITL"},
    {Command::SubTitle, "InpSUBT"},
    {Command::Control, "InpCONT"},
    {Command::Unit, "InpUNIT"},
    {Command::Node, "InpNODE"},
    {Command::Element, "InpELEM"},
    {Command::Section, "InpSECT"},
    {Command::NodalLoad, "InpPLOD"},
    {Command::ElementLoad, "InpELOD"},
    {Command::CmqLoad, "InpCLOD"},
    {Command::TemperatureLoad, "InpTLOD"},
    {Command::Spring, "InpSPRG"},
    {Command::ForcedDisplacement, "InpSPEC"},
    {Command::RigidZone, "InpRIGD"},
    {Command::Magnification, "InpALFA"},
    {Command::SameDisplacement, "InpDISP"},
};

bool HasTables(const MenuFacts& facts) {
  return facts.modelOpen && facts.modelCode != 0 && facts.maxLoadCase != 0;
}

bool IsMet(Needs needs, const MenuFacts& facts) {
  switch (needs) {
    case Needs::Nothing:
      return true;
    case Needs::Model:
      return facts.modelOpen;
    case Needs::Tables:
      return HasTables(facts);
    case Needs::Forced:
      return facts.modelOpen && facts.modelCode != kPlaneGrid;
    case Needs::Magnified:
      return HasTables(facts) && facts.rollerFlag != 1;
    case Needs::TableForm:
      return facts.tableForm;
    case Needs::UndoStep:
      return facts.undo;
    case Needs::RedoStep:
      return facts.redo;
    case Needs::Forces:
      return facts.modelOpen && facts.forces;
    case Needs::Listing:
      return facts.modelOpen && (facts.forces || facts.listing);
    case Needs::SteelDesign:
      return facts.modelOpen && facts.steelDesign;
    case Needs::ConcreteDesign:
      return facts.modelOpen && facts.concreteDesign;
  }
  return false;
}

/// Whether one of the entries that open from this row is on.
bool OpensSomething(const MenuRow& row, const MenuFacts& facts) {
  const MenuRow* const end = kMenu.data() + kMenu.size();
  const MenuRow* const above = std::find_if(kMenu.data(), end, [&](const MenuRow& known) {
    return known.control == row.control && known.index == row.index;
  });
  if (above == end) return false;
  for (const MenuRow* below = above + 1; below != end && below->level > row.level; ++below)
    if (IsOn(*below, facts)) return true;
  return false;
}

}  // namespace

std::string ControlName(const MenuRow& row) {
  std::string name(row.control);
  if (row.index >= 0) name.append("(").append(std::to_string(row.index)).append(")");
  return name;
}

const MenuRow& RowOf(Command command) {
  return *std::find_if(kMenu.begin(), kMenu.end(),
                       [&](const MenuRow& row) { return row.command == command; });
}

std::string_view TableFormOf(Command command) {
  for (const TableCommand& table : kTableCommands)
    if (table.command == command) return table.form;
  return {};
}

MenuFacts CurrentMenuFacts(bool tableFormInFront) {
  MenuFacts facts;
  facts.modelOpen = ModelIsOpen;
  facts.modelCode = InpModel.ModelCode;
  facts.maxLoadCase = InpModel.MaxLoadCase;
  facts.rollerFlag = InpModel.RollerFlag;
  facts.tableForm = facts.undo = facts.redo = tableFormInFront;
  facts.forces = Results.forces;
  facts.listing = Results.listing;
  facts.steelDesign = Results.steelDesign;
  facts.concreteDesign = Results.concreteDesign;
  return facts;
}

bool IsOn(const MenuRow& row, const MenuFacts& facts) {
  if (row.level == 0) return true;
  if (row.command == Command::None) return OpensSomething(row, facts);
  return IsMet(row.needs, facts);
}

bool IsOn(const InputButton& button, const MenuFacts& facts) {
  if (button.command == Command::None) return HasTables(facts);
  // With the plane grid its button tells why there are no forced displacements.
  if (button.command == Command::ForcedDisplacement) return facts.modelOpen;
  return IsOn(RowOf(button.command), facts);
}

}  // namespace zorlan
