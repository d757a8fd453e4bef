// What the windows say of a node or member that was picked in a figure.
#pragma once

#include <string>
#include <vector>

#include "graphics/frame_figure.h"
#include "graphics/picking.h"
#include "model/model_rec.h"

namespace zorlan {

/// A line of a panel or list.
struct PickFact {
  std::string caption, value;
  bool operator==(const PickFact&) const = default;
};

/// "〔12〕節点情報", "〔3〕要素情報".
std::string PickHeading(const Pick& pick);

/// What the figure knows of it: the entered data, and the results of the load case where the figure shows
/// results. Forces have the sense of the diagrams: tension is positive at both ends.
std::vector<PickFact> PickFacts(const Figure& figure, const Pick& pick);

/// The stored data of a node or element of a model, by its number; nothing when the model hasn't it.
std::vector<PickFact> NodeDefinition(const ModelRec& model, int number);
std::vector<PickFact> ElementDefinition(const ModelRec& model, int number);

/// Brings InpModel up to the tables as they are stored. A table at fault leaves it as it is.
void RefreshInpModel();

}  // namespace zorlan
