#include "analysis/listing_input.h"

#include <algorithm>

#include "analysis/listing_table.h"
#include "model/model_state.h"
#include "model/number_rows.h"

namespace zorlan {
namespace {

/// The heading of a table, and its units by InUnit: gravitational, SI.
struct Heading {
  std::string_view names;
  std::array<std::string_view, 2> units;
};

std::string_view Units(const Heading& heading, const ModelRec& model) {
  return heading.units[IsSI(model.InUnit) ? 1 : 0];
}

constexpr Heading kNodes[] = {
    {"  NODE       XX       YY     U   V   θ  傾斜ﾛｰﾗ角度        K-x           K-y          K-θ",
     {"            (M)      (M)                      (度)        (T/CM)        (T/CM)    (T*CM/RAD)",
      "            (M)      (M)                      (度)       (kN/MM)       (kN/MM)   (kN*MM/RAD)"}},
    {"  NODE       XX       YY     W  θx θy          K-z         K-θx         K-θy",
     {"            (M)      (M)                       (T/CM)    (T*CM/RAD)    (T*CM/RAD)",
      "            (M)      (M)                      (kN/MM)   (kN*MM/RAD)   (kN*MM/RAD)"}},
};
constexpr NumberPattern kNodeFields[] = {"  ###0", " ###0.000", " ###0.000", "     0", "   0", "   0"};
constexpr NumberPattern kRollerAngle = "    ###0.00";
constexpr NumberPattern kSpringFields[] = {" ########0.000", " ########0.000", " ########0.000"};

constexpr std::string_view kGroups = "  GROUP SAME DISP-U NODE";
constexpr NumberPattern kGroupNumber = "  ####0";
constexpr NumberPattern kGroupNode = " ###0";
constexpr int kGroupNodesPerLine = 10;

constexpr std::string_view kElements[] = {"  ELEM     I     J  II  JJ  MATE  RIGI   LENGTH",
                                          "                                            (M)"};
constexpr NumberPattern kElementFields[] = {"  ###0", "  ###0", "  ###0", "  #0",
                                            "  #0",   "  ###0", "  ###0", " ###0.000"};

constexpr std::string_view kRigidZones[] = {"  RIGI      λi      λj"};
constexpr NumberPattern kRigidZoneFields[] = {"  ###0", " ####0.00", " ####0.00"};

constexpr std::string_view kMagnification[] = {"  MAGF      X1      X2      α ",
                                               "           (m)     (m)         "};
constexpr std::string_view kMagnificationIndent = "      ";
constexpr NumberPattern kMagnificationFields[] = {" ###0.00", " ###0.00", " ##0.000"};

constexpr std::string_view kForced[] = {"  SPECIFIED DISPLACEMENT/ROTATION",
                                        "  NODE       S-X       S-Y       S-θ",
                                        "             (cm)      (cm)     (rad)"};
constexpr NumberPattern kForcedFields[] = {"  ###0", " ######0.0", " ######0.0", " ######0.0"};

constexpr std::string_view kLoadCase = "  LOAD CASE -";
constexpr NumberPattern kLoadCaseNumber = "##0";

constexpr Heading kNodalLoads[] = {
    {"  NODE        F-X        F-Y        M-Z",
     {"              (T)        (T)       (T*M)", "             (kN)       (kN)      (kN*M)"}},
    {"  NODE        F-Z        M-X        M-Y",
     {"              (T)      (T*M)       (T*M)", "             (kN)     (kN*M)      (kN*M)"}},
};
constexpr NumberPattern kNodalLoadFields[] = {"  ###0", "######0.000", "######0.000", "######0.000"};

// The fields of a load are eleven columns wide whatever the width of its heading.
constexpr Heading kElementLoads = {
    "  ELEM         P  TYPE      Ly       K   MG",
    {"        (T | T/M| T/M2)    (M)             ", "        (kN|kN/M|kN/M2)    (M)             "}};
constexpr NumberPattern kElementLoadFields[] = {"  ###0",      " #####0.000", "   #0",
                                                "######0.000", "######0.000", "   #0"};

constexpr Heading kCmqLoads = {"  ELEM         Ci         Mo         Cj         Qi         Qj  MG",
                               {"            (T*M)      (T*M)      (T*M)        (T)        (T)    ",
                                "           (kN*M)     (kN*M)     (kN*M)       (kN)       (kN)    "}};
constexpr NumberPattern kCmqLoadFields[] = {"  ###0",      "######0.000", "######0.000", "######0.000",
                                            "######0.000", "######0.000", "   #0"};

constexpr Heading kTemperatureLoads = {"  ELEM    Y1      T1      T2         α        To    J",
                                       {"         (CM)    (ﾟC)    (ﾟC)     (1/ﾟC)      (ﾟC)    ",
                                        "         (CM)    (ﾟC)    (ﾟC)     (1/ﾟC)      (ﾟC)    "}};
constexpr NumberPattern kTemperatureLoadFields[] = {
    "  ###0", "######0.000", "######0.000", "######0.000", "##0.0000000", " ######0.0", "   #0"};

void AppendBlanks(std::string& out, int count) {
  out.append(static_cast<std::size_t>(count), ' ');
}

bool HasCode(const NodeRec& node, SupportCode code) {
  return std::count(node.code.begin(), node.code.end(), code) > 0;
}

/// The first spring row of each node.
NumberRows SpringRows(const ModelRec& model) {
  NumberRows rows;
  for (int r = 1; r <= model.SprgCount; ++r) rows.Note(model.Sprg[r].node, r);
  return rows;
}

std::string NodeTable(const ModelRec& model) {
  std::string out;
  if (model.NodeCount == 0) return out;
  const bool grid = model.ModelCode == kPlaneGrid;
  const Heading& heading = kNodes[KindPlace(model)];
  AppendLine(out, heading.names);
  AppendLine(out, Units(heading, model));
  const NumberRows springs = SpringRows(model);
  const SprgRec noSpring;
  for (int r = 1; r <= model.NodeCount; ++r) {
    const NodeRec& node = model.Node[r];
    AppendFields(out, kNodeFields,
                 Reals(node.number, node.X, node.Y, node.code[0], node.code[1], node.code[2]));
    // A grid has no inclined rollers, and its heading no column for them.
    if (!grid && HasCode(node, kInclinedRoller))
      AppendField(out, node.rollerAngle, kRollerAngle);
    else if (!grid)
      AppendBlanks(out, kRollerAngle.Width());
    if (HasCode(node, kSpring)) {
      const int row = springs.Row(node.number);
      const SprgRec& spring = row == 0 ? noSpring : model.Sprg[row];
      AppendFields(out, kSpringFields, Reals(spring.K1, spring.K2, spring.K3));
    } else {
      for (const NumberPattern& field : kSpringFields) AppendBlanks(out, field.Width());
    }
    out += kLineEnd;
  }
  return out;
}

std::string GroupTable(const ModelRec& model) {
  std::string out;
  if (model.ModelCode != kSameDisplacementFrame || model.DispCount == 0) return out;
  AppendLine(out, kGroups);
  for (int r = 1; r <= model.DispCount; ++r) {
    const DispRec& group = model.Disp[r];
    AppendField(out, group.group, kGroupNumber);
    for (int n = 1; n <= group.count; ++n) {
      if (n > 1 && n % kGroupNodesPerLine == 1) {
        out += kLineEnd;
        AppendBlanks(out, kGroupNumber.Width());
      }
      AppendField(out, group.node[static_cast<std::size_t>(n)], kGroupNode);
    }
    out += kLineEnd;
  }
  return out;
}

/// A table of number fields under heading lines; nothing without rows.
template <class Record, class ValuesOf>
std::string PlainTable(std::span<const std::string_view> heading, std::string_view indent,
                       std::span<const NumberPattern> fields, const Rows<Record>& rows, int count,
                       ValuesOf valuesOf) {
  std::string out;
  if (count == 0) return out;
  for (const std::string_view line : heading) AppendLine(out, line);
  for (int r = 1; r <= count; ++r) {
    out += indent;
    AppendFields(out, fields, valuesOf(rows[r]));
    out += kLineEnd;
  }
  return out;
}

std::string ElementTable(const ModelRec& model) {
  return PlainTable(kElements, "", kElementFields, model.Elem, model.ElemCount, [](const ElemRec& e) {
    return Reals(e.number, e.I, e.J, e.II, e.JJ, e.section, e.rigid, e.length);
  });
}

std::string RigidZoneTable(const ModelRec& model) {
  return PlainTable(kRigidZones, "", kRigidZoneFields, model.Rigd, model.RigdCount,
                    [](const RigdRec& zone) { return Reals(zone.number, zone.lambdaI, zone.lambdaJ); });
}

std::string MagnificationTable(const ModelRec& model) {
  return PlainTable(kMagnification, kMagnificationIndent, kMagnificationFields, model.Alfa, model.AlfaCount,
                    [](const AlfaRec& range) { return Reals(range.X1, range.X2, range.alpha); });
}

std::string ForcedDisplacementTable(const ModelRec& model) {
  if (model.ModelCode == kPlaneGrid) return {};
  return PlainTable(kForced, "", kForcedFields, model.Spec, model.SpecCount, [](const SpecRec& forced) {
    return Reals(forced.node, forced.S1, forced.S2, forced.S3);
  });
}

/// The rows of one kind that belong to a load case, under their heading; nothing without them.
template <class Record, class ValuesOf>
void AppendLoads(std::string& out, const ModelRec& model, int loadCase, const Heading& heading,
                 std::span<const NumberPattern> fields, const Rows<Record>& rows, int count,
                 ValuesOf valuesOf) {
  bool first = true;
  for (int r = 1; r <= count; ++r) {
    if (rows[r].loadCase != loadCase) continue;
    if (first) {
      AppendLine(out, heading.names);
      AppendLine(out, Units(heading, model));
      first = false;
    }
    AppendFields(out, fields, valuesOf(rows[r]));
    out += kLineEnd;
  }
}

std::string LoadsOfCase(const ModelRec& model, int loadCase) {
  std::string out;
  AppendLoads(out, model, loadCase, kNodalLoads[KindPlace(model)], kNodalLoadFields, model.Plod,
              model.PlodCount, [](const PlodRec& p) { return Reals(p.node, p.F1, p.F2, p.F3); });
  AppendLoads(out, model, loadCase, kElementLoads, kElementLoadFields, model.Elod, model.ElodCount,
              [](const ElodRec& e) { return Reals(e.element, e.P, e.TYPE, e.Ly, e.K, e.MG); });
  AppendLoads(out, model, loadCase, kCmqLoads, kCmqLoadFields, model.Clod, model.ClodCount,
              [](const ClodRec& c) { return Reals(c.element, c.Ci, c.Mo, c.Cj, c.Qi, c.Qj, c.MG); });
  AppendLoads(out, model, loadCase, kTemperatureLoads, kTemperatureLoadFields, model.Tlod, model.TlodCount,
              [](const TlodRec& t) { return Reals(t.element, t.Y1, t.T1, t.T2, t.alpha, t.To, t.J); });
  return out;
}

std::string LoadTable(const ModelRec& model) {
  std::string out;
  for (int c = 1; c <= model.MaxLoadCase; ++c) {
    const std::string loads = LoadsOfCase(model, c);
    if (loads.empty()) continue;
    out += kLoadCase;
    AppendField(out, c, kLoadCaseNumber);
    out += kLineEnd;
    out += loads;
  }
  return out;
}

}  // namespace

std::string AnalysisInputList(const ModelRec& model) {
  std::string list;
  for (const std::string& table :
       {NodeTable(model) + GroupTable(model), ElementTable(model), SectionList(model), RigidZoneTable(model),
        MagnificationTable(model), ForcedDisplacementTable(model), LoadTable(model)}) {
    if (!list.empty() && !table.empty()) list += kLineEnd;
    list += table;
  }
  return list;
}

void MakeAnalysisInputList(std::string& text) {
  text = AnalysisInputList(RawModel);
}

}  // namespace zorlan
