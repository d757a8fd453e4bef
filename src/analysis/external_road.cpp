#include "analysis/external_road.h"

#include <algorithm>
#include <new>

#include "analysis/analysis_state.h"
#include "analysis/external_deck.h"
#include "analysis/external_results.h"
#include "analysis/external_tables.h"
#include "analysis/members.h"
#include "analysis/result_files.h"
#include "base/cp932.h"
#include "base/fault.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/model_state.h"

namespace zorlan {

std::string ProgramFolder;

namespace {

constexpr const char* kInputFile = "FT999.INP";
constexpr const char* kOutputFile = "FT999.OUT";
constexpr const char* kErrorFile = "FT999.ERR";
constexpr const char* kControlFile = "ANAZOR.CTL";
#ifdef _WIN32
constexpr const char* kProgram = "anaZorlan.exe";
#else
constexpr const char* kProgram = "anaZorlan";
#endif

ExternalTables Tables;  // of the deck written last

std::string ControlText() {
  // The program runs in this folder, so a name that the code page can't hold can be left out.
  const bool nameable = Cp932FromUtf8(AnalysisPath).lost.empty();
  std::string text;
  for (const std::string& line : {std::string(kInputFile), std::string(kOutputFile), std::string(kErrorFile),
                                  nameable ? AnalysisPath : FolderText(".")})
    text += line + "\r\n";
  return text;
}

/// Where a deck node is, in the model's words.
std::string PlaceOf(int deckNode) {
  const ExtNode& node = Tables.ExtNodes[static_cast<std::size_t>(deckNode - 1)];
  if (node.modelNumber != 0) return std::to_string(node.modelNumber);
  for (const ExtBeam& beam : Tables.ExtBeams)
    if (beam.modelElement != 0 && (beam.nodeI == deckNode || beam.nodeJ == deckNode))
      return "（要素番号 " + std::to_string(beam.modelElement) + " の中間点）";
  return "（補助節点）";
}

/// What the companion said, with the deck's node number turned into the model's.
std::string ErrorFileText() {
  std::string text(NoSpc(ReadTextFileIfAny(AnalysisPath + kErrorFile).value_or("")));
  while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
  constexpr std::string_view kNode = "NODE =";
  const std::size_t label = text.find(kNode);
  if (label == std::string::npos) return text;
  const std::size_t first = label + kNode.size();
  const std::size_t last = std::min(text.find_first_not_of("0123456789", first), text.size());
  const double deckNode = ReadReal(text.substr(first, last - first));
  if (deckNode < 1 || deckNode > static_cast<double>(Tables.ExtNodes.size())) return text;
  return text.replace(first, last - first, PlaceOf(static_cast<int>(deckNode)));
}

/// Why a run of the companion gave no result; empty if it did.
std::string Failure(const ProgramEnd& end, const std::string& program) {
  using How = ProgramEnd::How;
  switch (end.how) {
    case How::NotStarted:
      return "外部解析プログラム " + program + " を起動できません" +
             (end.reason.empty() ? "" : "（" + end.reason + "）");
    case How::Cancelled:
      return "外部解析プログラムの実行を中止しました";
    case How::Killed:
      return "外部解析プログラムが異常終了しました（" + std::to_string(end.code) + "）";
    case How::Exited:
      break;
  }
  if (end.code == 0) return {};
  const std::string said = ErrorFileText();
  return "外部解析プログラムがエラーで終了しました（終了コード " + std::to_string(end.code) + "）" +
         (said.empty() ? "" : "\n" + said);
}

void TellFailure(const std::string& what) {
  AnalysisErrorDetail = what;
  AnalysisError = StageNote("anaZorlan");
  TheHost().message(AnalysisErrorDetail + " " + AnalysisError, "解析失敗");
}

/// The codes of the nodes that the case moves; a node keeps its others.
void MarkMovedNodes() {
  for (const ExtMovedNode& moved : Tables.movedNodes) CalcModel.Node[moved.row].code = moved.code;
}

bool IsLinked(int row) {
  return std::any_of(Tables.ExtBeams.begin(), Tables.ExtBeams.end(), [row](const ExtBeam& beam) {
    return beam.endI == kExtLink && (beam.nodeI == row || beam.nodeJ == row);
  });
}

/// What the boundary elements exert on a node along X.
double BoundaryForceAlongX(int row, const ExternalOutput& output) {
  double force = 0;
  for (std::size_t b = 0; b < Tables.ExtBoundary.size(); ++b)
    if (Tables.ExtBoundary[b].node == row)
      force += output.boundaryForces[b] * Tables.ExtBoundary[b].direction[0];
  return force;
}

/// The member forces that meet a moved node, less the loads on the node itself, which no support exerts. The
/// support of a group's node holds the whole group, so along X it exerts more than meets the node. A free
/// direction has no reaction, even where a same-displacement link pulls at the node.
std::array<double, 3> MovedNodeReactions(int loadCase, int row, const MergedResults& results,
                                         const ExternalOutput& output) {
  const std::vector<double> sum = MemberForceSum(loadCase, CalcModel.Node[row].number, results);
  std::array<double, 3> reaction{sum[0], sum[1], sum[2]};
  for (const ExtNodalLoad& load : Tables.ExtNodalLoads) {
    if (load.node != row) continue;
    reaction[0] -= load.FX;
    reaction[1] -= load.FY;
    reaction[2] += load.MZ;
  }
  if (IsLinked(row)) reaction[0] = BoundaryForceAlongX(row, output);
  for (std::size_t dof = 0; dof < 3; ++dof)
    if (CalcModel.Node[row].code[dof] == kFree) reaction[dof] = 0;
  return reaction;
}

void StoreResults(int loadCase, const ExternalOutput& output, MergedResults& results) {
  const auto perCase = static_cast<std::size_t>(3 * results.nodes);
  double* u = results.displacements.data() + static_cast<std::size_t>(loadCase - 1) * perCase;
  for (std::size_t node = 0; node < static_cast<std::size_t>(results.nodes); ++node)
    u = std::copy_n(output.displacements[node].begin(), 3, u);
  for (std::size_t e = 0; e < Tables.elements.size(); ++e) {
    const std::array<double, 6> ends = ElementEndForces(Tables.elements[e], output);
    double* const values =
        &results.forces[ForcePlace(loadCase, results.elements, static_cast<int>(e) + 1, 1)];
    std::copy(ends.begin(), ends.end(), values);
    values[6] = 0;
  }
  for (const int row : Tables.supportRows) {
    const bool moved = std::any_of(Tables.movedNodes.begin(), Tables.movedNodes.end(),
                                   [row](const ExtMovedNode& node) { return node.row == row; });
    const std::array<double, 3> reaction =
        moved ? MovedNodeReactions(loadCase, row, results, output) : BoundaryReactions(row, Tables, output);
    const int place = results.SupportPlace(CalcModel.Node[row].number);
    std::copy(reaction.begin(), reaction.end(), results.Reaction(loadCase, place));
  }
}

/// Calls change(value, magnification of its element) for all values of so many cases.
template <class Change>
void ForEachForce(const ModelRec& model, double* values, int cases, Change change) {
  const double tolerance = MagnificationTolerance(model);
  const std::vector<Member> members = CollectMembers(model);
  for (int c = 0; c < cases; ++c)
    for (const Member& member : members) {
      const double magnification = MagnificationBetween(model, member.xi, member.xj, tolerance);
      for (int p = 0; p < kForcesPerElement; ++p) change(*values++, magnification);
    }
}

}  // namespace

void WriteExternalDeck(const ModelRec& model, int loadCase) {
  Tables = BuildExternalTables(model, loadCase);
  ReplaceTextFile(AnalysisPath + kInputFile, ExternalDeckText(Tables), Flush::No);
}

bool RunExternalSolver(const std::string& appFolder) {
  for (const char* const name : {kOutputFile, kErrorFile}) RemoveFile(AnalysisPath + name);
  ReplaceTextFile(AnalysisPath + kControlFile, ControlText(), Flush::No);
  const std::string program = appFolder + kProgram;
  const std::string failure = Failure(TheHost().runAndWait(program, AnalysisPath), program);
  if (failure.empty()) return true;
  TellFailure(failure);
  return false;
}

void ReadExternalResults(int loadCase, MergedResults& results) {
  const ExternalOutput output = ParseExternalOutput(ReadTextFile(AnalysisPath + kOutputFile), Tables);
  MarkMovedNodes();
  StoreResults(loadCase, output, results);
}

bool SolveExternalCase(int loadCase, MergedResults& results) {
  try {
    WriteExternalDeck(CalcModel, loadCase);
    if (!RunExternalSolver(ProgramFolder)) return false;
    ReadExternalResults(loadCase, results);
    return true;
  } catch (const std::bad_alloc&) {
    TellFailure("メモリが不足しています");
  } catch (const std::exception& fault) {
    TellFailure(fault.what());
  }
  return false;
}

void MagnifyForces(const ModelRec& model, int loadCase, MergedResults& results) {
  ForEachForce(model, &results.forces[ForcePlace(loadCase, results.elements, 1, 1)], 1,
               [](double& value, double magnification) { value *= magnification; });
}

void RemoveMagnification(const ModelRec& model) {
  const std::size_t count = static_cast<std::size_t>(model.MaxLoadCase) *
                            static_cast<std::size_t>(model.ElemCount) * kForcesPerElement;
  std::vector<double> forces = ReadReals(AnalysisPath + "FT031", count);
  ForEachForce(model, forces.data(), model.MaxLoadCase, [](double& value, double magnification) {
    if (magnification != 0) value /= magnification;  // 0 leaves a member no forces to divide
  });
  WriteForces(AnalysisPath, forces);
}

}  // namespace zorlan
