// A built model as a deck, in gravitational units: LF, UTF-8.
#pragma once

#include <string>

#include "base/number.h"
#include "model/model_rec.h"

namespace zorlan::test {

/// Values as the fields of a row.
template <class... Values>
std::string Fields(Values... values) {
  std::string line;
  ((line += (line.empty() ? "" : ",") + RealText(values)), ...);
  return line;
}

/// Direct-input sections alone; reals with 15 digits.
inline std::string DeckText(const ModelRec& m) {
  std::string text = "@CONT\n" + Fields(m.ModelCode, m.MaxLoadCase, 0, m.RollerFlag) + "\n@UNIT\n0,0\n";
  const auto rows = [&text](const char* name, int count, auto line) {
    if (count > 0) text += std::string("@") + name + "\n";
    for (int r = 1; r <= count; ++r) text += line(r) + "\n";
  };
  rows("NODE", m.NodeCount, [&](int r) {
    const NodeRec& n = m.Node[r];
    return Fields(n.number, n.X, n.Y, n.code[0], n.code[1], n.code[2], n.rollerAngle);
  });
  rows("ELEM", m.ElemCount, [&](int r) {
    const ElemRec& e = m.Elem[r];
    return Fields(e.number, e.I, e.J, e.II, e.JJ, e.section, e.rigid);
  });
  constexpr double kCm2PerM2 = 1e4, kCm4PerM4 = 1e8;
  rows("SECT", m.SectCount, [&](int r) {
    const SectRec& s = m.Sect[r];
    return Fields(s.number, 0, s.P1 * kCm2PerM2, s.P2 * kCm4PerM4, 0, s.P4 * kCm2PerM2, 1, s.E / kCm2PerM2,
                  s.G / kCm2PerM2);
  });
  rows("PLOD", m.PlodCount, [&](int r) {
    const PlodRec& l = m.Plod[r];
    return Fields(l.loadCase, l.node, l.F1, l.F2, l.F3);
  });
  rows("ELOD", m.ElodCount, [&](int r) {
    const ElodRec& l = m.Elod[r];
    return Fields(l.loadCase, l.element, l.P, l.TYPE, l.Ly, l.K, l.MG);
  });
  rows("CLOD", m.ClodCount, [&](int r) {
    const ClodRec& l = m.Clod[r];
    return Fields(l.loadCase, l.element, l.Ci, l.Mo, l.Cj, l.Qi, l.Qj, l.MG);
  });
  rows("RIGD", m.RigdCount,
       [&](int r) { return Fields(m.Rigd[r].number, m.Rigd[r].lambdaI, m.Rigd[r].lambdaJ); });
  rows("DISP", m.DispCount, [&](int r) {
    std::string line = Fields(m.Disp[r].group);
    for (int n = 1; n <= m.Disp[r].count; ++n)
      line += "," + Fields(m.Disp[r].node[static_cast<std::size_t>(n)]);
    return line;
  });
  rows("SPRG", m.SprgCount,
       [&](int r) { return Fields(m.Sprg[r].node, m.Sprg[r].K1, m.Sprg[r].K2, m.Sprg[r].K3); });
  rows("SPEC", m.SpecCount, [&](int r) {
    const SpecRec& s = m.Spec[r];
    return Fields(s.node, s.loadCase, s.S1, s.S2, s.S3);
  });
  rows("ALFA", m.AlfaCount, [&](int r) { return Fields(m.Alfa[r].X1, m.Alfa[r].X2, m.Alfa[r].alpha); });
  return text;
}

}  // namespace zorlan::test
