#include "shell/figure_pick.h"

#include <array>
#include <cmath>
#include <string_view>

#include "base/fault.h"
#include "base/number_format.h"
#include "base/text_file.h"
#include "graphics/diagram_curves.h"
#include "model/deck.h"
#include "model/model_state.h"

namespace zorlan {
namespace {

constexpr NumberPattern kLength = "######0.000###", kResult = "######0.000", kAngle = "##0.0####",
                        kRotation = "0.000000";

using Directions = std::array<std::string_view, 3>;
constexpr Directions kFrameDirections = {"Ｕ", "Ｖ", "θ"}, kGridDirections = {"Ｗ", "θｘ", "θｙ"};

/// "Ｕ=1 Ｖ=1 θ=0"
std::string StateText(const std::array<std::int16_t, 3>& code, bool grid) {
  std::string text;
  for (std::size_t d = 0; d < code.size(); ++d)
    text.append(d == 0 ? "" : " ")
        .append((grid ? kGridDirections : kFrameDirections)[d])
        .append("=")
        .append(std::to_string(code[d]));
  return text;
}

std::string EndText(int condition) {
  return condition == 1 ? "1：ピン" : std::to_string(condition) + (condition == 0 ? "：剛" : "");
}

template <class Node>
std::vector<PickFact> NodeFacts(const Node& node, double x, double y, bool grid) {
  return {{"節点番号", std::to_string(node.number)},
          {"座標Ｘ", FormatNumber(x, kLength)},
          {"座標Ｙ", FormatNumber(y, kLength)},
          {"節点状態", StateText(node.code, grid)}};
}

PickFact RollerFact(double angle) {
  return {"傾斜ローラ角度", FormatNumber(angle, kAngle)};
}

template <class Element>
std::vector<PickFact> ElementFacts(const Element& element) {
  return {{"要素番号", std::to_string(element.number)}, {"節点I", std::to_string(element.I)},
          {"節点J", std::to_string(element.J)},         {"Ｉ端節点条件", EndText(element.II)},
          {"Ｊ端節点条件", EndText(element.JJ)},        {"断面番号", std::to_string(element.section)}};
}

void AddDisplacements(std::vector<PickFact>& facts, const Figure& figure, int index) {
  const DisplacementRecord* const moved = figure.model.DisplacementOf(figure.loadCase, index);
  if (moved == nullptr) return;
  if (figure.model.IsGrid()) {
    facts.push_back({"変位Ｚ(cm)", FormatNumber(moved->x * kCmPerM, kResult)});
    return;
  }
  facts.push_back({"変位Ｘ(cm)", FormatNumber(moved->x * kCmPerM, kResult)});
  facts.push_back({"変位Ｙ(cm)", FormatNumber(moved->y * kCmPerM, kResult)});
  facts.push_back({"回転(rad)", FormatNumber(moved->rotation, kRotation)});
}

/// The numbers that the diagrams have at the ends of a member, by its ends I and J.
void AddForces(std::vector<PickFact>& facts, const Figure& figure, int index) {
  const FigureModel& model = figure.model;
  const StressRecord* const record = model.StressOf(figure.loadCase, index);
  if (record == nullptr) return;
  const bool si = IsSI(model.outUnit);
  const auto add = [&](std::string caption, double value, bool moment) {
    const std::string_view unit = moment ? (si ? "(kN･m)" : "(t･m)") : (si ? "(kN)" : "(t)");
    facts.push_back({caption.append(unit), FormatNumber(value * model.DisplayFactor(), kResult)});
  };
  const FigureElement& element = model.elements[static_cast<std::size_t>(index)];
  if (element.rowI < 0 || element.rowJ < 0) return;  // no diagram has it
  const FigureNode& i = model.nodes[static_cast<std::size_t>(element.rowI)];
  const FigureNode& j = model.nodes[static_cast<std::size_t>(element.rowJ)];
  const bool exchanged = StartsAtJ({i.x, i.y}, {j.x, j.y});
  const EndValues axial = AxialFromStart(*record, exchanged),
                  shear = ShearFromStart(*record, exchanged, model.IsGrid());
  const MomentValues moment = MomentLabels(*record, exchanged, model.IsGrid());
  add("軸力Ｉ", exchanged ? axial.end : axial.start, false);
  add("軸力Ｊ", exchanged ? axial.start : axial.end, false);
  add("せん断力Ｉ", exchanged ? shear.end : shear.start, false);
  add("せん断力Ｊ", exchanged ? shear.start : shear.end, false);
  add("ﾓｰﾒﾝﾄＩ", exchanged ? moment.end : moment.start, true);
  add("ﾓｰﾒﾝﾄ中央", moment.centre, true);
  add("ﾓｰﾒﾝﾄＪ", exchanged ? moment.start : moment.end, true);
}

}  // namespace

std::string PickHeading(const Pick& pick) {
  const bool node = pick.what == Pick::What::Node;
  return "〔" + std::to_string(pick.number) + "〕" + (node ? "節点情報" : "要素情報");
}

std::vector<PickFact> PickFacts(const Figure& figure, const Pick& pick) {
  const FigureModel& model = figure.model;
  const auto index = static_cast<std::size_t>(pick.index);
  if (pick.what == Pick::What::Node) {
    if (index >= model.nodes.size()) return {};
    const FigureNode& node = model.nodes[index];
    std::vector<PickFact> facts = NodeFacts(node, node.x, node.y, model.IsGrid());
    if (node.rollerAngle != 0) facts.push_back(RollerFact(node.rollerAngle));
    if (SourceOf(figure.DiagramType) == FigureSource::Analysis) AddDisplacements(facts, figure, pick.index);
    return facts;
  }
  if (index >= model.elements.size()) return {};
  const FigureElement& element = model.elements[index];
  std::vector<PickFact> facts = ElementFacts(element);
  if (element.rowI >= 0 && element.rowJ >= 0) {
    const FigureNode& i = model.nodes[static_cast<std::size_t>(element.rowI)];
    const FigureNode& j = model.nodes[static_cast<std::size_t>(element.rowJ)];
    facts.push_back({"要素の長さ", FormatNumber(std::hypot(j.x - i.x, j.y - i.y), kLength)});
  }
  if (SourceOf(figure.DiagramType) == FigureSource::Analysis) AddForces(facts, figure, pick.index);
  if (index < model.ratios.size() && !std::isnan(model.ratios[index]))
    facts.push_back({"判定値", FormatNumber(model.ratios[index], kResult)});
  return facts;
}

std::vector<PickFact> NodeDefinition(const ModelRec& model, int number) {
  for (int n = 1; n <= model.NodeCount; ++n) {
    const NodeRec& node = model.Node[n];
    if (node.number != number) continue;
    std::vector<PickFact> facts = NodeFacts(node, node.X, node.Y, model.ModelCode == kPlaneGrid);
    facts.push_back(RollerFact(node.rollerAngle));
    return facts;
  }
  return {};
}

std::vector<PickFact> ElementDefinition(const ModelRec& model, int number) {
  for (int e = 1; e <= model.ElemCount; ++e) {
    const ElemRec& element = model.Elem[e];
    if (element.number != number) continue;
    std::vector<PickFact> facts = ElementFacts(element);
    facts.push_back({"剛域タイプ番号", std::to_string(element.rigid)});
    facts.push_back({"要素の長さ", FormatNumber(element.length, kLength)});
    return facts;
  }
  return {};
}

void RefreshInpModel() {
  const std::string scratch = WorkPath + "Figure.inp";
  try {
    SaveDeck(/*deleteTables=*/false, scratch);
    ReadDeck(scratch, /*checkMode=*/false);
    RemoveFile(scratch);
  } catch (const Fault&) {
    // The input check tells what is wrong with the tables; here what was read before serves.
  }
}

}  // namespace zorlan
