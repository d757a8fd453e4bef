#include "analysis/analysis_listing.h"

#include <set>
#include <vector>

#include "analysis/analysis_state.h"
#include "analysis/listing_input.h"
#include "analysis/listing_results.h"
#include "analysis/listing_table.h"
#include "analysis/result_files.h"
#include "analysis/run_progress.h"
#include "base/cp932.h"
#include "base/fault.h"
#include "base/number.h"
#include "base/text_file.h"
#include "model/model_state.h"
#include "model/number_rows.h"

namespace zorlan {
namespace {

constexpr std::string_view kTitle = "◆TITLE";
constexpr std::string_view kControl = "◆CONTROL INFORMATION";
constexpr std::string_view kInputList = "◆INPUT DATA LIST";
constexpr std::string_view kListing = "FT100";
constexpr int kDirections = 3;

/// A line of the control information: its text, and what stands behind it, if anything.
struct ControlLine {
  std::string_view text;
  std::string (*value)(const ModelRec& model, const OutputForce& unit) = nullptr;
};

constexpr ControlLine kControlLines[] = {
    {"  ANALYSIS CODE                              = ",
     [](const ModelRec& m, const OutputForce&) { return std::to_string(m.ModelCode); }},
    {"     =1 : 一般任意平面骨組み解析"},
    {"     =2 : 同一変形条件付き平面骨組み解析"},
    {"     =3 : 平面格子梁解析"},
    {"  NUMBER OF NODAL POINTS                     = ",
     [](const ModelRec& m, const OutputForce&) { return std::to_string(m.NodeCount); }},
    {"  NUMBER OF BEAMS                            = ",
     [](const ModelRec& m, const OutputForce&) { return std::to_string(m.ElemCount); }},
    {"  NUMBER OF LOAD CASES                       = ",
     [](const ModelRec& m, const OutputForce&) { return std::to_string(m.MaxLoadCase); }},
    {"  INPUT LIST                                 = ",
     [](const ModelRec& m, const OutputForce&) { return std::to_string(m.ListFlag); }},
    {"     =0 : 入力データのリスト出力無し"},
    {"     =1 : 入力データのリスト出力有り"},
    {"  INPUT OF UNITS                             = ",
     [](const ModelRec& m, const OutputForce&) { return std::to_string(m.InUnit); }},
    {"     =0 : 工学単位"},
    {"     =1 : ＳＩ単位"},
    {"  OUTPUT OF UNITS                            = ",
     [](const ModelRec&, const OutputForce& unit) {
       return std::to_string(unit.outUnit) + " " +
              std::string(kForceLabels[static_cast<std::size_t>(unit.Index())]);
     }},
    {"     =0 : 工学単位"},
    {"     =1 : ＳＩ単位"},
    {"  FACTOR OF UNITS                            = ",
     [](const ModelRec&, const OutputForce& unit) { return RealText(unit.gravity); }},
};

void Print(FileWriter& file, std::string_view text) {
  file.Buffer() += Cp932FromUtf8(text).bytes;
  file.Drain();
}

void PrintDisplacements(FileWriter& file, const ModelRec& model) {
  const int cases = model.MaxLoadCase, nodes = model.NodeCount;
  const std::vector<double> values =
      ReadReals(ResultFolder() + "FT021", ValueCount(cases, nodes, kDirections));
  const ResultTable displacements{values, cases, nodes, kDirections};
  const bool grid = model.ModelCode == kPlaneGrid;
  Print(file, DisplacementHeading(grid));
  for (int row = 1; row <= nodes; ++row) {
    AppendDisplacements(file.Buffer(), model.Node[row].number, displacements, row - 1, grid);
    if (cases > 1 && row < nodes) file.Buffer() += kLineEnd;
    file.Drain();
    SayItem(row, nodes);
  }
}

/// A supported node that the listing shows: its place in FT022A, and which components have a reaction.
struct ListedSupport {
  int index = 0;
  std::array<bool, 3> shown{};
};

/// A supported node is left out only if all its codes are 0 and no load case displaces it. One that is
/// displaced shows all its reactions, in every case.
std::vector<ListedSupport> ListedSupports(const ModelRec& model, const std::vector<int>& numbers) {
  const NumberRows nodeRows(model.Node, model.NodeCount);
  std::set<int> forcedNodes;
  for (int r = 1; r <= model.SpecCount; ++r) forcedNodes.insert(model.Spec[r].node);
  std::vector<ListedSupport> supports;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const int row = nodeRows.Row(numbers[i]);
    if (row == 0)
      throw FileFault(ResultFolder() + "FT022A",
                      "節点 " + std::to_string(numbers[i]) + " はモデルにありません");
    const auto& code = model.Node[row].code;
    const bool forced = forcedNodes.contains(numbers[i]);
    if (!forced && code == std::array<std::int16_t, 3>{}) continue;
    ListedSupport& support = supports.emplace_back();
    support.index = static_cast<int>(i);
    for (std::size_t d = 0; d < code.size(); ++d) support.shown[d] = forced || code[d] >= 1;
  }
  return supports;
}

void PrintReactions(FileWriter& file, const ModelRec& model, const OutputForce& unit) {
  const Reactions stored = ReadReactions(ResultFolder(), model.MaxLoadCase);
  const std::vector<ListedSupport> supports = ListedSupports(model, stored.nodes);
  const ResultTable reactions = stored.Table();
  Print(file, ReactionHeading(model.ModelCode == kPlaneGrid, unit.Index()));
  for (const ListedSupport& support : supports) {
    const int number = stored.nodes[static_cast<std::size_t>(support.index)];
    AppendReactions(file.Buffer(), number, support.shown, reactions, support.index, unit);
    if (reactions.cases > 1) file.Buffer() += kLineEnd;
    file.Drain();
    SayItem(support.index + 1, reactions.rows);
  }
  Print(file, ReactionSums(reactions, unit));
  Print(file, kLineEnd);
}

}  // namespace

std::string ListingTitle(const ModelRec& model, const OutputForce& unit) {
  std::string text;
  AppendLine(text, kTitle);
  AppendLine(text, "  " + model.Title + " (" +
                       std::string(kForceLabels[static_cast<std::size_t>(unit.Index())]) + " )");
  AppendLine(text, model.SubTitle);
  AppendLine(text, "");
  AppendLine(text, "");
  return text;
}

std::string ControlInformation(const ModelRec& model, const OutputForce& unit) {
  std::string text;
  AppendLine(text, kControl);
  for (const ControlLine& line : kControlLines)
    AppendLine(text,
               std::string(line.text) + (line.value == nullptr ? std::string() : line.value(model, unit)));
  AppendLine(text, "");
  return text;
}

// All comes from RawModel, the deck as read: the external road leaves CalcModel with other support codes.
void DSYSOUT1() {
  RunStage("DSYSOUT1", [] {
    const OutputForce unit = OutputForceInHand();
    FileWriter file(AnalysisPath + std::string(kListing));
    Print(file, ListingTitle(RawModel, unit));
    Print(file, ControlInformation(RawModel, unit));
    if (RawModel.ListFlag == 1) {
      std::string list;
      MakeAnalysisInputList(list);
      for (const std::string_view part : {kInputList, kLineEnd, std::string_view(list), kLineEnd})
        Print(file, part);
    }
    try {
      PrintDisplacements(file, RawModel);
      PrintReactions(file, RawModel, unit);
    } catch (const Fault&) {
      file.Commit();  // what is whole stays: the listing is short, not missing
      throw;
    }
    file.Commit();
  });
}

void DSYSOUT2() {
  RunStage("DSYSOUT2", [] {
    const int cases = RawModel.MaxLoadCase, elements = RawModel.ElemCount;
    const std::vector<double> values =
        ReadReals(ResultFolder() + "FT031", ValueCount(cases, elements, kForcesPerElement));
    const ResultTable forces{values, cases, elements, kForcesPerElement};
    const OutputForce unit = OutputForceInHand();
    const AxialMarks marks = {Cp932FromUtf8(kCompression).bytes, Cp932FromUtf8(kTension).bytes};
    FileWriter file(AnalysisPath + std::string(kListing), FileWriter::Start::Continued);
    Print(file, ForceHeading(unit.Index()));
    for (int row = 1; row <= elements; ++row) {
      AppendMemberForces(file.Buffer(), RawModel.Elem[row], forces, row - 1, unit, marks);
      if (cases > 1) file.Buffer() += kLineEnd;
      file.Drain();
      SayItem(row, elements);
    }
    file.Commit();
  });
}

}  // namespace zorlan
