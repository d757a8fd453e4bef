// Models built in a test, in the analysis' own units (t, m, rad; springs t/cm and t*cm/rad): what ReadDeck
// leaves in CalcModel.
#pragma once

#include <array>
#include <cmath>
#include <initializer_list>

#include "model/model_rec.h"

namespace zorlan::test {

using Codes = std::array<std::int16_t, 3>;
inline constexpr Codes kLoose = {0, 0, 0};
inline constexpr Codes kClamped = {1, 1, 1};
inline constexpr Codes kHinged = {1, 1, 0};  // a frame's pin
inline constexpr Codes kRolling = {0, 1, 0};

template <class Record>
void AppendRow(Rows<Record>& rows, std::int16_t& count, Record record) {
  rows.Append(std::move(record));
  ++count;
}

/// Every routine adds a row; numbers count from 1 in the order of the calls.
struct ModelBuilder {
  explicit ModelBuilder(ModelKind kind = kPlaneFrame, int cases = 1) {
    model.ModelCode = kind;
    model.MaxLoadCase = static_cast<std::int16_t>(cases);
  }

  int Node(double x, double y, Codes code = kLoose) {
    NodeRec node;
    node.number = static_cast<std::int16_t>(model.NodeCount + 1);
    node.X = x;
    node.Y = y;
    node.code = code;
    AppendRow(model.Node, model.NodeCount, node);
    return node.number;
  }
  /// A direct-input section: E in t/m2, A in m2, I in m4. G of 0: no shear deformation.
  int Section(double E, double A, double I, double G = 0, double As = 0) {
    SectRec section;
    section.number = static_cast<std::int16_t>(model.SectCount + 1);
    section.P1 = A;
    section.P2 = I;
    section.P4 = As;
    section.phi = 1;
    section.E = E;
    section.G = G;
    AppendRow(model.Sect, model.SectCount, section);
    return section.number;
  }
  int RigidZones(double lambdaI, double lambdaJ) {
    const auto number = static_cast<std::int16_t>(model.RigdCount + 1);
    AppendRow(model.Rigd, model.RigdCount, RigdRec{number, lambdaI, lambdaJ});
    return number;
  }
  /// Between nodes of these numbers.
  int Element(int I, int J, int section = 1, int II = 0, int JJ = 0, int rigid = 0) {
    ElemRec element;
    element.number = static_cast<std::int16_t>(model.ElemCount + 1);
    element.I = static_cast<std::int16_t>(I);
    element.J = static_cast<std::int16_t>(J);
    element.II = static_cast<std::int16_t>(II);
    element.JJ = static_cast<std::int16_t>(JJ);
    element.section = static_cast<std::int16_t>(section);
    element.rigid = static_cast<std::int16_t>(rigid);
    const double dx = model.Node[J].X - model.Node[I].X, dy = model.Node[J].Y - model.Node[I].Y;
    element.length = std::sqrt(dx * dx + dy * dy);
    AppendRow(model.Elem, model.ElemCount, element);
    return element.number;
  }

  void NodalLoad(int node, double F1, double F2, double F3, int loadCase = 1) {
    AppendRow(model.Plod, model.PlodCount,
              PlodRec{static_cast<std::int16_t>(loadCase), static_cast<std::int16_t>(node), F1, F2, F3});
  }
  void ElementLoad(int element, double P, int type = 0, double Ly = 0, int MG = 0, int loadCase = 1) {
    AppendRow(model.Elod, model.ElodCount,
              ElodRec{static_cast<std::int16_t>(loadCase), static_cast<std::int16_t>(element), P,
                      static_cast<std::int16_t>(type), Ly, 1, static_cast<std::int16_t>(MG)});
  }
  void CmqLoad(int element, double Ci, double Mo, double Cj, double Qi, double Qj, int MG = 0,
               int loadCase = 1) {
    AppendRow(model.Clod, model.ClodCount,
              ClodRec{static_cast<std::int16_t>(loadCase), static_cast<std::int16_t>(element), Ci, Mo, Cj, Qi,
                      Qj, static_cast<std::int16_t>(MG)});
  }
  void TemperatureLoad(int element, double Y1, double T1, double T2, double alpha, double To, int J = 0,
                       int loadCase = 1) {
    AppendRow(model.Tlod, model.TlodCount,
              TlodRec{static_cast<std::int16_t>(loadCase), static_cast<std::int16_t>(element), Y1, T1, T2,
                      alpha, To, static_cast<std::int16_t>(J)});
  }
  void Spring(int node, double K1, double K2, double K3) {
    AppendRow(model.Sprg, model.SprgCount, SprgRec{static_cast<std::int16_t>(node), K1, K2, K3});
  }
  void Magnification(double X1, double X2, double alpha) {
    AppendRow(model.Alfa, model.AlfaCount, AlfaRec{X1, X2, alpha});
  }
  /// By 1 cm downward.
  void ForcedDisplacement(int node, int loadCase) { Moved(node, 0, -1, 0, loadCase); }
  /// cm, cm, rad.
  void Moved(int node, double S1, double S2, double S3, int loadCase = 1) {
    AppendRow(model.Spec, model.SpecCount,
              SpecRec{static_cast<std::int16_t>(loadCase), static_cast<std::int16_t>(node), S1, S2, S3});
  }
  void Group(std::initializer_list<int> nodes) {
    DispRec group;
    group.group = static_cast<std::int16_t>(model.DispCount + 1);
    for (const int node : nodes)
      group.node[static_cast<std::size_t>(++group.count)] = static_cast<std::int16_t>(node);
    AppendRow(model.Disp, model.DispCount, group);
  }

  ModelRec model;
};

}  // namespace zorlan::test
