#include "output/csv_output.h"

#include <algorithm>
#include <exception>
#include <new>
#include <vector>

#include "analysis/force_units.h"
#include "base/cp932.h"
#include "base/fault.h"
#include "base/host.h"
#include "base/number.h"
#include "base/text.h"
#include "base/text_file.h"
#include "model/deck.h"
#include "model/model_state.h"
#include "model/number_rows.h"

namespace zorlan {
namespace {

constexpr std::array<std::string_view, 3> kEndings = {"_D.CSV", "_S.CSV", "_R.CSV"};

constexpr std::string_view kDisplacements = "Node, Load, dx, dy, dr";
constexpr std::string_view kDisplacementUnits = "No, Case, (cm), (cm), (rad)";

constexpr std::string_view kForces = "Element, Load, Ni, Qi, Mi, Nj, Qj, Mj, Mc";
constexpr std::array<std::string_view, 4> kForceUnits = {
    "No, Case, (T), (T), (T･M), (T), (T), (T･M), (T･M)",
    "No, Case, (Kg), (Kg), (Kg･M), (Kg), (Kg), (Kg･M), (Kg･M)",
    "No, Case, (kN), (kN), (kN･M), (kN), (kN), (kN･M), (kN･M)",
    "No, Case, (N), (N), (N･M), (N), (N), (N･M), (N･M)",
};

constexpr std::string_view kReactions = "Node, Load, Fx, Fy, Fr";
constexpr std::array<std::string_view, 4> kReactionUnits = {
    "No, Case, (T), (T), (T･M)",
    "No, Case, (Kg), (Kg), (Kg･M)",
    "No, Case, (kN), (kN), (kN･M)",
    "No, Case, (N), (N), (N･M)",
};

std::string Heading(std::string_view names, std::string_view units) {
  return std::string(names) + "\r\n" + std::string(units) + "\r\n";
}

/// All that the files show, in their units.
struct CsvContents {
  int cases = 0;
  std::vector<double> displacements, forces;
  Reactions reactions;
};

/// Reads the results in the analysis folder as they belong to the deck just read. Throws a FileFault where
/// they don't: their values would stand beside the numbers of other nodes and elements.
void ReadResults(CsvContents& contents) {
  contents.cases = RawModel.MaxLoadCase;
  contents.displacements =
      ReadReals(AnalysisPath + "FT021", ValueCount(contents.cases, RawModel.NodeCount, 3), Behind::Nothing);
  contents.forces =
      ReadReals(AnalysisPath + "FT031", ValueCount(contents.cases, RawModel.ElemCount, kForcesPerElement),
                Behind::Nothing);
  if (!FileExists(AnalysisPath + "FT022A")) return;
  contents.reactions = ReadReactions(AnalysisPath, contents.cases);
  const NumberRows rows(RawModel.Node, RawModel.NodeCount);
  for (const int node : contents.reactions.nodes)
    if (rows.Row(node) == 0)
      throw FileFault(AnalysisPath + "FT022A", "節点 " + std::to_string(node) + " はモデルにありません");
}

/// A complaint about a file of the analysis folder with the name that it has beside the deck: the folder of a
/// program without windows is gone when the user reads it.
std::string NamingStoredFile(std::string complaint) {
  if (complaint.starts_with(AnalysisPath)) complaint.replace(0, AnalysisPath.size(), ResultFolder());
  return complaint;
}

/// The results of the deck just read, in the units of the files.
CsvContents ReadContents(const OutputForce& unit) {
  CsvContents contents;
  try {
    ReadResults(contents);
  } catch (const FileFault& fault) {
    throw Fault(std::string(kNoFittingResults) + "（" + NamingStoredFile(fault.what()) + "）");
  }
  // The same factors in a grid, though its second value is a rotation: the columns are the frame's.
  for (std::size_t i = 0; i < contents.displacements.size(); ++i)
    if (i % 3 != 2) contents.displacements[i] *= kCmPerM;
  for (double& force : contents.forces) force = unit.Of(force);
  for (double& reaction : contents.reactions.values) reaction = unit.Of(reaction);
  return contents;
}

/// One file: its heading, then the lines of every row. `numberOf` answers the number of the row with this
/// index.
template <class NumberOf>
void WriteTable(FileWriter& file, std::string_view heading, const ResultTable& values, NumberOf numberOf) {
  file.Buffer() += Cp932FromUtf8(heading).bytes;
  for (int index = 0; index < values.rows; ++index) {
    AppendCsvLines(file.Buffer(), numberOf(index), values, index);
    file.Drain();
  }
}

/// All three are written before the first takes its name.
void WriteContents(const std::array<std::string, 3>& paths, const CsvContents& contents, int forceIndex) {
  FileWriter displacements(paths[0]), forces(paths[1]), reactions(paths[2]);
  WriteTable(displacements, CsvDisplacementHeading(),
             {contents.displacements, contents.cases, RawModel.NodeCount, 3},
             [](int index) { return RawModel.Node[index + 1].number; });
  WriteTable(forces, CsvForceHeading(forceIndex),
             {contents.forces, contents.cases, RawModel.ElemCount, kForcesPerElement},
             [](int index) { return RawModel.Elem[index + 1].number; });
  WriteTable(reactions, CsvReactionHeading(forceIndex), contents.reactions.Table(),
             [&](int index) { return contents.reactions.nodes[static_cast<std::size_t>(index)]; });
  const std::array files = {&displacements, &forces, &reactions};
  for (FileWriter* const file : files) file->DrainAll();
  for (FileWriter* const file : files) file->Commit();
}

void WriteResults(const std::array<std::string, 3>& paths) {
  if (!FileExists(DeckPath())) throw FileFault(DeckPath(), "ファイルがありません");
  ReadDeck(DeckPath(), /*checkMode=*/false);
  const OutputForce unit = OutputForceInHand();
  WriteContents(paths, ReadContents(unit), unit.Index());
}

}  // namespace

std::string CsvBaseName() {
  return ModelBaseName();
}

std::string CsvDisplacementHeading() {
  return Heading(kDisplacements, kDisplacementUnits);
}

std::string CsvForceHeading(int forceIndex) {
  return Heading(kForces, kForceUnits[static_cast<std::size_t>(forceIndex)]);
}

std::string CsvReactionHeading(int forceIndex) {
  return Heading(kReactions, kReactionUnits[static_cast<std::size_t>(forceIndex)]);
}

void AppendCsvLines(std::string& out, int number, const ResultTable& values, int index) {
  for (int c = 1; c <= values.cases; ++c) {
    out += std::to_string(number);
    out += ", ";
    out += std::to_string(c);
    const double* const value = values.Row(c, index);
    for (int place = 0; place < values.places; ++place) {
      out += ", ";
      const std::size_t start = out.size();
      AppendReal(out, value[place]);
      if (const std::size_t e = out.find('e', start); e != std::string::npos) out[e] = 'E';
    }
    out += kLineEnd;
  }
}

CsvResult WriteCsvFiles(std::string_view folder, std::string_view name) {
  CsvResult result;
  folder = NoSpc(folder);
  name = NoSpc(name);
  if (folder.empty()) {
    Tell("出力先フォルダを指定してください");
    result.focus = CsvEntry::Folder;
    return result;
  }
  if (name.empty()) {
    Tell("ファイル名を指定してください");
    result.focus = CsvEntry::Name;
    return result;
  }
  for (std::size_t i = 0; i < kEndings.size(); ++i)
    result.paths[i] = FolderText(folder) + std::string(name) + std::string(kEndings[i]);
  if (!std::ranges::all_of(result.paths, CanWriteFile)) {
    Tell("ファイルを書き込めませんでした\nフォルダ名またはファイル名を確認してください");
    return result;
  }
  try {
    WriteResults(result.paths);
    result.written = true;
    Tell("CSVファイルを作成しました");
  } catch (const std::bad_alloc&) {
    ReportError("WriteCsvFiles", "メモリが不足しています");
  } catch (const std::exception& fault) {
    ReportError("WriteCsvFiles", fault.what());
  }
  return result;
}

}  // namespace zorlan
