#include "summary.h"

#include <fmt/format.h>

#include <cmath>
#include <string>
#include <string_view>

#include "analysis/force_units.h"
#include "analysis/static_analysis.h"
#include "base/cp932.h"
#include "base/host.h"
#include "base/number_format.h"
#include "batch_host.h"
#include "model/model_state.h"

namespace zorlan::batch {
namespace {

constexpr std::string_view kForceNames[] = {"t", "kg", "kN", "N"};  // by ForceIndex
constexpr NumberPattern kThreeDecimals = "##########0.000";

std::string_view RoadName(Road road) {
  switch (road) {
    case Road::InMemory:
      return "メモリ上で解析";
    case Road::File:
      return "波前法で解析";
    case Road::External:
      return "外部ソルバーで解析";
  }
  return {};
}

std::string Cell(double value, std::size_t width) {
  constexpr double kTooWide = 1e8;
  const bool wide = !(std::abs(value) < kTooWide);
  return PadLeft(wide ? fmt::format("{:.3e}", value) : FormatNumber(value, kThreeDecimals), width);
}

/// A line a case; in a grid the only direction is Z.
std::string CaseTable(const AnalysisReport& report, bool grid) {
  std::string text = "    ケース  最大変位(cm)  節点";
  const std::string unit = "(" + std::string(kForceNames[static_cast<std::size_t>(ForceIndex())]) + ")";
  for (const std::string_view sum : {"荷重", "反力"})
    for (const std::string_view direction : {"X", "Y"}) {
      if (grid && direction == "Y") continue;
      text += PadLeft(std::string(sum) + "合計" + std::string(grid ? "Z" : direction) + unit, 16);
    }
  text += "  最大残差  節点";
  for (std::size_t c = 0; c < report.trust.size(); ++c) {
    const CaseTrust& trust = report.trust[c];
    text += "\n" + PadLeft(std::to_string(c + 1), 10) + Cell(trust.largestDisplacement * kCmPerM, 14) +
            PadLeft(std::to_string(trust.displacementNode), 6);
    for (const auto& sums : {trust.loadSum, trust.reactionSum})
      for (std::size_t d = 0; d < (grid ? 1U : 2U); ++d) text += Cell(ConvertForce(sums[d]), 16);
    text += fmt::format("{:>10.1e}{:>6}", ConvertForce(trust.residual), trust.residualNode);
  }
  return text;
}

}  // namespace

void TellSummary(double seconds) {
  const AnalysisReport& report = LastAnalysis();
  PrintError(DeckPath());
  PrintError(fmt::format("  節点 {}  要素 {}  荷重ケース {}  {}  {:.1f} ms", report.nodes, report.elements,
                         report.cases, RoadName(report.road), seconds * 1000));
  PrintError(CaseTable(report, CalcModel.ModelCode == kPlaneGrid));
  PrintError("  結果 " + ResultFolder() + "  リスト " + ListingPath());
  for (const std::string& doubt : DoubtsAbout(report.trust).sentences) Tell(DeckPath() + " ： " + doubt);
}

}  // namespace zorlan::batch
