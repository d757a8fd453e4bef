// What a figure shows, loaded once: redraws touch no file and no global.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/result_files.h"
#include "model/model_rec.h"
#include "model/table_file.h"

namespace zorlan {

struct FigureNode {
  std::int16_t number = 0;
  double x = 0, y = 0;                 // m
  std::array<std::int16_t, 3> code{};  // frame: U, V, θ; grid: W, θx, θy
  double rollerAngle = 0;              // degrees
};

struct FigureElement {
  std::int16_t number = 0;
  std::int16_t I = 0, J = 0;    // node numbers
  std::int16_t II = 0, JJ = 0;  // end conditions: 0 rigid, 1 pin
  std::int16_t section = 0;
  int rowI = -1, rowJ = -1;  // indices of the nodes, -1 when there is none of that number
};

/// Axial force, moment and shear of a member, as the diagrams read them; t, t*m. Who shows them multiplies by
/// the model's DisplayFactor.
struct StressRecord {
  double axialI = 0, momentI = 0, momentC = 0, momentJ = 0, axialJ = 0, shearI = 0, shearJ = 0;
};
struct DisplacementRecord {
  double x = 0, y = 0, rotation = 0;  // m, m, rad; grid: w, θx, θy
};

struct FigureModel {
  std::string title, name;
  int modelCode = kPlaneFrame;
  int maxLoadCase = 1;
  int inUnit = 0, outUnit = 0;  // 0 gravitational, 1 SI
  double gravityFactor = kStandardGravity;

  std::vector<FigureNode> nodes;        // table order
  std::vector<FigureElement> elements;  // table order
  std::vector<PlodRec> nodalLoads;      // of all cases, table order, in the units of the input
  std::vector<ElodRec> elementLoads;
  std::vector<ClodRec> cmqLoads;
  std::vector<TlodRec> temperatureLoads;
  std::vector<int> nodalLoadNode, elementLoadElement, cmqLoadElement,
      temperatureLoadElement;  // indices, -1: none

  // Results: [(case - 1) * count + index]; empty without them.
  std::vector<DisplacementRecord> DisplacementTable;
  std::vector<StressRecord> StressTable;
  // Design ratios by element index; NaN where there is none. Empty without them.
  std::vector<double> ratios;

  bool lengthFaultTold = false;  // the message about a member without length was shown

  bool IsGrid() const { return modelCode == kPlaneGrid; }

  /// The record of a load case (from 1) and an element or node (its index); nullptr where there is none.
  const StressRecord* StressOf(int loadCase, int element) const;
  const DisplacementRecord* DisplacementOf(int loadCase, int node) const;

  /// From t and t*m to the unit in which results are shown.
  double DisplayFactor() const { return IsSI(outUnit) ? gravityFactor : 1; }
};

/// The figure's copy of a model as entered. Total: rows beyond the arrays are left, numbers that lead nowhere
/// are -1.
FigureModel FigureModelOf(const ModelRec& model);

/// Rows that stand in for those of a table's file, by the table's key: what a form shows and hasn't
/// committed.
using TypedRows = std::map<std::string, std::vector<TableRow>, std::less<>>;

/// The model in hand as its table files in the work folder stand, with the messages for a table at fault.
/// What a table can't give is left out. A row is split as ReadDeck splits it, so that the figure shows what
/// the analysis takes, but for one thing: a whole number in parentheses is shown without them.
FigureModel ReadFigureTables(const TypedRows& typed = {});
/// The same of the tables in a deck's text, with the rows of every section.
FigureModel ReadFigureDeck(std::string_view deck);

/// Adds displacements and member forces from FT021 and FT031 of `folder`. Throws Fault with file and reason,
/// with nothing added, when one is missing, has something else than numbers, or not just as many of them as
/// the model needs: it was changed since.
void ReadFigureResults(FigureModel& model, const std::string& folder);
/// The same; false for a Fault, where the user learns what to do (kNoFittingResults) and not what is wrong.
bool LoadFigureResults(FigureModel& model, const std::string& folder);

}  // namespace zorlan
